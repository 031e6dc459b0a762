#pragma once

#include "xml/document.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace corvane::xml {

/// The most bytes that a document may have when it is written.
constexpr std::size_t mostWritten = std::size_t{512} << 20U;

/// Appends the element as UTF-8 text, its children indented by two blanks a level from `level` on, without a line
/// feed before or after. An element that holds text is written as it stands, with everything below it. Namespaces
/// declared above the element are not declared again. Fails with PlatformError when `out` becomes larger than
/// mostWritten.
void writeElement(std::string& out, Element element, int level);

/// The element's start tag without the attributes of these names and without its closing ">" or "/>". There is no
/// other ">" in it.
[[nodiscard]] std::string openTag(Element element, std::initializer_list<std::string_view> without = {});

/// True for an element without children of any kind, which closes itself.
[[nodiscard]] bool isEmpty(Element element);

} // namespace corvane::xml
