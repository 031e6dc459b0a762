#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::xml {

/// Hands a document to the parser piece by piece and counts what the parser meets in it, so that it does not work
/// through what no project holds: whatever it expands or compares each with each. Once something is too much, there
/// are no more bytes.
class ParserLimits {
public:
    explicit ParserLimits(std::string_view document) : document_(document) {}

    /// The first thing that is too much, as the beginning of a sentence; empty while nothing is.
    [[nodiscard]] const std::string& excess() const { return excess_; }

    /// The next bytes of the document, at most `room`; none at its end or when something is too much.
    [[nodiscard]] std::string_view next(std::size_t room);
    /// To be called for everything that the parser hands over of the document's contents.
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
    /// False while nothing is declared, so that nothing can make the document grow.
    [[nodiscard]] bool mayGrow() const { return declarations_ > 0; }
    /// What attributes by default add in bytes; what the document holds itself may be counted too.
    void growth(std::size_t bytes);
    void entityReference(std::string_view name);

    /// `bytes` are those of all the text that an element has had so far.
    void text(std::size_t bytes);
    /// From 1.
    void level(std::size_t level);
    struct Element {
        std::size_t level = 0; ///< from 1
        std::size_t attributes = 0;
        std::size_t namespacesInScope = 0; ///< with those that it declares
    };
    /// `names` are the different ones that the document has had so far, and what else the parser keeps only once:
    /// identifiers and texts of a few characters.
    void element(const Element& element, int names);

private:
    struct Entity {
        std::string text;
        std::optional<std::size_t> wholeSize; ///< with the entities in it
    };

    [[nodiscard]] std::size_t wholeSize(std::string_view entity);
    void tooMuch(std::string_view what);

    std::string_view document_;
    std::string excess_;
    std::size_t given_ = 0;
    std::size_t silentSince_ = 0;   ///< what was given_ when the parser last handed something over
    std::ptrdiff_t equalSigns_ = 0; ///< in what it got after a long silence
    bool beforeElements_ = true;
    std::optional<std::size_t> documentType_; ///< bytes given before it, while the parser is in it
    std::size_t declarations_ = 0;
    std::map<std::string, Entity, std::less<>> entities_;
    std::size_t growth_ = 0;
};

} // namespace corvane::xml
