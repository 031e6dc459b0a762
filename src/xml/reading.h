#pragma once

#include <memory>
#include <string_view>

struct _xmlDoc;

namespace corvane::xml {

/// The tree of a document, as Document::parse() describes it; for this library's own sources.
[[nodiscard]] std::shared_ptr<_xmlDoc> readDocument(std::string_view bytes);

} // namespace corvane::xml
