#pragma once

#include <memory>
#include <string_view>

struct _xmlDoc;

namespace corvane::xml {

/// Parses a document into a tree as Document::parse() describes. For the source files of this layer only.
[[nodiscard]] std::shared_ptr<_xmlDoc> readDocument(std::string_view bytes);

} // namespace corvane::xml
