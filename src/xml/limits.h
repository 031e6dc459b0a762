#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::xml {

/// Feeds a document to the parser in pieces and counts what the parser reports, so that it does not spend time on what
/// no real project contains: on anything that it expands, or compares with every other. Once a limit is exceeded, no
/// further bytes are fed.
class ParserLimits {
public:
    explicit ParserLimits(std::string_view document) : document_(document) {}

    /// The limit that was exceeded first, as the beginning of a sentence; empty if none was.
    [[nodiscard]] const std::string& excess() const { return excess_; }

    /// The next bytes of the document, at most `room`; empty at its end or once a limit is exceeded.
    [[nodiscard]] std::string_view next(std::size_t room);
    /// Call this for every piece of content that the parser reports.
    void contents()
    {
        silentSince_ = given_;
        equalSigns_ = 0;
    }

    void documentTypeStarts() { documentType_ = given_; }
    void documentTypeEnds() { documentType_.reset(); }
    void declaration();
    void entity(std::string_view name, std::string_view text);
    void parameterEntity(std::string_view name);
    /// False if the document declares nothing, and so cannot grow by entities or default attributes.
    [[nodiscard]] bool mayGrow() const { return declarations_ > 0; }
    /// `bytes` is what default attributes add; it may include bytes that the document itself contains.
    void growth(std::size_t bytes);
    void entityReference(std::string_view name);

    /// `bytes` is the length of all text in an element so far.
    void text(std::size_t bytes);
    /// From 1.
    void level(std::size_t level);
    struct Element {
        std::size_t level = 0; ///< from 1
        std::size_t attributes = 0;
        std::size_t namespacesInScope = 0; ///< with those that it declares
    };
    /// `names` is the number of different names in the document so far, including whatever else the parser stores only
    /// once: identifiers and very short texts.
    void element(const Element& element, int names);

private:
    struct Entity {
        std::string text;
        std::optional<std::size_t> wholeSize; ///< including the entities in it
    };

    [[nodiscard]] std::size_t wholeSize(std::string_view entity);
    void tooMuch(std::string_view what);

    std::string_view document_;
    std::string excess_;
    std::size_t given_ = 0;
    std::size_t silentSince_ = 0;   ///< given_ when the parser last reported something
    std::ptrdiff_t equalSigns_ = 0; ///< in the bytes fed since the parser last reported something, if that was long ago
    bool beforeElements_ = true;
    std::optional<std::size_t> documentType_; ///< bytes given before it, while the parser is in it
    std::size_t declarations_ = 0;
    std::map<std::string, Entity, std::less<>> entities_;
    std::size_t growth_ = 0;
};

} // namespace corvane::xml
