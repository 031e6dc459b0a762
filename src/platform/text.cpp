#include "platform/text.h"

#include "platform/error.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>

namespace corvane {

namespace {

void require(UErrorCode status)
{
    if (U_FAILURE(status))
        throw PlatformError(std::string("The text rules are not available: ") + u_errorName(status));
}

struct CloseText {
    void operator()(UText* text) const { utext_close(text); }
};
using OpenText = std::unique_ptr<UText, CloseText>;

/// The text as far as ICU's 32-bit indices reach: no name and no timecode is that long.
icu::StringPiece piece(std::string_view text)
{
    constexpr std::size_t longest = std::numeric_limits<std::int32_t>::max();
    return {text.data(), static_cast<std::int32_t>(std::min(text.size(), longest))};
}

/// UTF-8 for ICU, whose native indices are then byte offsets.
OpenText open(std::string_view text)
{
    UErrorCode status = U_ZERO_ERROR;
    OpenText opened(utext_openUTF8(nullptr, text.data(), piece(text).size(), &status));
    require(status);
    return opened;
}

/// Ends of user-perceived characters, one after the other, as byte offsets.
class CharacterEnds {
public:
    explicit CharacterEnds(std::string_view text) : text_(open(text))
    {
        UErrorCode status = U_ZERO_ERROR;
        characters_.reset(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
        require(status);
        characters_->setText(text_.get(), status);
        require(status);
    }

    /// False at the end of the text; otherwise moves to the end of the next character.
    bool next(std::size_t& end)
    {
        const std::int32_t at = characters_->next();
        if (at == icu::BreakIterator::DONE)
            return false;
        end = static_cast<std::size_t>(at);
        return true;
    }

private:
    OpenText text_;
    std::unique_ptr<icu::BreakIterator> characters_;
};

/// What is left for a search: no case, no marks on letters. Composed again, so that a Korean syllable is one
/// character and not the beginning of another.
std::string searchForm(std::string_view text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposing = icu::Normalizer2::getNFDInstance(status);
    const icu::Normalizer2* composing = icu::Normalizer2::getNFCInstance(status);
    require(status);
    const icu::UnicodeString decomposed = decomposing->normalize(icu::UnicodeString::fromUTF8(piece(text)), status);
    require(status);
    icu::UnicodeString bare;
    for (std::int32_t at = 0; at < decomposed.length(); at = decomposed.moveIndex32(at, 1)) {
        const UChar32 c = decomposed.char32At(at);
        if (u_charType(c) != U_NON_SPACING_MARK)
            bare.append(c);
    }
    std::string form;
    composing->normalize(bare.foldCase(), status).toUTF8String(form);
    require(status);
    return form;
}

} // namespace

std::string_view trimmed(std::string_view text)
{
    if (text.empty())
        return text;
    const OpenText opened = open(text);
    UText* cursor = opened.get();
    const auto isBlank = [](UChar32 c) { return c >= 0 && u_isUWhiteSpace(c); };
    UChar32 first = utext_next32(cursor);
    while (isBlank(first))
        first = utext_next32(cursor);
    if (first == U_SENTINEL)
        return {};
    utext_previous32(cursor);
    const auto start = static_cast<std::size_t>(utext_getNativeIndex(cursor));
    utext_setNativeIndex(cursor, utext_nativeLength(cursor));
    while (isBlank(utext_previous32(cursor))) {
    }
    utext_next32(cursor);
    return text.substr(start, static_cast<std::size_t>(utext_getNativeIndex(cursor)) - start);
}

std::string_view firstCharacters(std::string_view text, std::size_t count)
{
    if (text.size() <= count)
        return text; // no character is shorter than a byte
    CharacterEnds ends(text);
    std::size_t kept = 0;
    for (std::size_t n = 0; n < count && ends.next(kept); ++n) {
    }
    return text.substr(0, kept);
}

std::string_view charactersWithin(std::string_view text, std::size_t bytes)
{
    if (text.size() <= bytes)
        return text;
    CharacterEnds ends(text);
    std::size_t kept = 0;
    std::size_t end = 0;
    while (ends.next(end) && end <= bytes)
        kept = end;
    return text.substr(0, kept);
}

std::string lowerCased(std::string_view text)
{
    std::string lower;
    icu::StringByteSink<std::string> sink(&lower, piece(text).size());
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToLower("", 0, piece(text), sink, nullptr, status);
    require(status);
    return lower;
}

struct NameOrder::Collator {
    std::unique_ptr<icu::Collator> rules;
};

NameOrder::NameOrder(const std::string& language)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale = language.empty() ? icu::Locale::getRoot() : icu::Locale(language.c_str());
    std::unique_ptr<icu::Collator> rules(icu::Collator::createInstance(locale, status));
    require(status);
    rules->setStrength(icu::Collator::SECONDARY); // letters, then accents; not case
    rules->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    rules->setAttribute(UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, status); // blanks are characters
    rules->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    require(status);
    collator_ = std::make_unique<const Collator>(Collator{std::move(rules)});
}

NameOrder::~NameOrder() = default;

std::string NameOrder::usersLanguage()
{
    const icu::Locale& locale = icu::Locale::getDefault();
    return std::string_view(locale.getVariant()) == "POSIX" ? "" : locale.getName();
}

std::strong_ordering NameOrder::operator()(std::string_view a, std::string_view b) const
{
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult result = collator_->rules->compareUTF8(piece(a), piece(b), status);
    require(status);
    return result == UCOL_EQUAL ? a <=> b : result <=> UCOL_EQUAL; // bytes of UTF-8 sort as code points
}

bool containsStandard(std::string_view text, std::string_view query)
{
    return searchForm(text).find(searchForm(query)) != std::string::npos;
}

} // namespace corvane
