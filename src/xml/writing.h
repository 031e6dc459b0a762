#pragma once

#include "xml/document.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace corvane::xml {

/// The largest document that may be written, in bytes.
constexpr std::size_t mostWritten = std::size_t{512} << 20U;

/// Appends the element as UTF-8 text, indented by two spaces per level beginning with `level`, without a line feed
/// before or after. An element that contains text is written unchanged, including all its descendants. Namespaces
/// declared above the element are not declared again. Throws PlatformError if `out` becomes larger than mostWritten.
void writeElement(std::string& out, Element element, int level);

/// The element's start tag without the named attributes and without the closing ">" or "/>". It contains no other ">".
[[nodiscard]] std::string openTag(Element element, std::initializer_list<std::string_view> without = {});

/// True for an element without children of any kind, which is written as "<name/>".
[[nodiscard]] bool isEmpty(Element element);

} // namespace corvane::xml
