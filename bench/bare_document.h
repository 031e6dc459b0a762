#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace corvane::bench {

/// What libxml2 alone does with a document: the baseline for import and export.
class BareDocument {
public:
    /// Parses with the import's options, and does nothing else. Throws std::runtime_error.
    [[nodiscard]] static BareDocument parse(std::string_view bytes);

    /// Writes the document into memory, indented, as UTF-8; returns the number of bytes.
    [[nodiscard]] std::size_t serialise() const;

private:
    explicit BareDocument(std::shared_ptr<void> document) : document_(std::move(document)) {}
    std::shared_ptr<void> document_; ///< a libxml2 document
};

} // namespace corvane::bench
