#include "xml/limits.h"

#include <algorithm>

namespace corvane::xml {

namespace {

// Final Cut writes an empty document type, up to thirty or so attributes in a tag, and about ten levels of elements.
constexpr std::size_t mostDocumentTypeBytes = std::size_t{64} << 10U;
constexpr std::size_t mostDeclarations = 200;             ///< each declared attribute counts as one
constexpr std::size_t mostGrowth = std::size_t{1} << 20U; ///< in addition to twice the size of the document
constexpr std::size_t enormous = std::size_t{1} << 40U;   ///< caps sizes that are added up
constexpr std::size_t mostLevels = 256;
constexpr std::size_t mostAttributes = 500;
constexpr std::size_t mostNamespaces = 100;  ///< each is looked at for each attribute with a prefix
constexpr std::size_t mostText = 10'000'000; ///< the parser's own limit for everything else
constexpr int mostNames = 100'000;
constexpr std::size_t longSilence = std::size_t{64} << 10U; ///< bytes: a tag, or a long comment
constexpr std::ptrdiff_t mostEqualSigns = 10'000;           ///< since then: it is a tag, with about as many attributes

} // namespace

std::string_view ParserLimits::next(std::size_t room)
{
    constexpr std::size_t smallPiece = 1'024; // small, to count the bytes of the document type closely
    if (documentType_ && given_ - *documentType_ > mostDocumentTypeBytes)
        tooMuch("The document type of this file is longer than 64 kB");
    if (equalSigns_ > mostEqualSigns)
        tooMuch("A tag of this file is too long");
    if (!excess_.empty())
        return {};
    const std::string_view piece = document_.substr(given_, beforeElements_ ? std::min(room, smallPiece) : room);
    given_ += piece.size();
    if (given_ - silentSince_ > longSilence)
        equalSigns_ += std::ranges::count(piece, '=');
    return piece;
}

void ParserLimits::declaration()
{
    if (++declarations_ > mostDeclarations)
        tooMuch("The document type of this file has more than 200 declarations");
}

void ParserLimits::parameterEntity(std::string_view name)
{
    tooMuch("The document type of this file uses the parameter entity “%" + std::string(name) + ";”");
}

void ParserLimits::entity(std::string_view name, std::string_view text)
{
    entities_.try_emplace(std::string(name), Entity{std::string(text), std::nullopt}); // the first of a name counts
}

void ParserLimits::entityReference(std::string_view name)
{
    growth(wholeSize(name));
}

std::size_t ParserLimits::wholeSize(std::string_view entity)
{
    const auto found = entities_.find(entity);
    if (found == entities_.end())
        return 0;
    if (found->second.wholeSize)
        return *found->second.wholeSize;
    found->second.wholeSize = 0; // so that this ends for a circle, which the parser refuses
    const std::string_view text = found->second.text;
    std::size_t size = text.size();
    for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1))
        size += wholeSize(text.substr(at + 1, text.find(';', at) - at - 1));
    found->second.wholeSize = std::min(size, enormous);
    return *found->second.wholeSize;
}

void ParserLimits::growth(std::size_t bytes)
{
    growth_ += bytes;
    if (growth_ > mostGrowth + 2 * document_.size())
        tooMuch("The document type of this file makes it grow too far");
}

void ParserLimits::text(std::size_t bytes)
{
    if (bytes > mostText)
        tooMuch("An element of this file holds more than 10 MB of text");
}

void ParserLimits::level(std::size_t level)
{
    if (level > mostLevels)
        tooMuch("Elements of this file are nested more than 256 levels deep");
}

void ParserLimits::element(const Element& element, int names)
{
    beforeElements_ = false;
    documentTypeEnds();
    contents();
    level(element.level);
    if (element.attributes > mostAttributes)
        tooMuch("An element of this file has more than 500 attributes");
    if (element.namespacesInScope > mostNamespaces)
        tooMuch("An element of this file stands in more than 100 namespaces");
    if (names > mostNames)
        tooMuch("This file has more than 100,000 different names, identifiers and short texts");
}

void ParserLimits::tooMuch(std::string_view what)
{
    if (excess_.empty())
        excess_ = what;
}

} // namespace corvane::xml
