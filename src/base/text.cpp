#include "base/text.h"

#include "base/error.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>
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
        throw PlatformError(std::string("The ICU text services are not available: ") + u_errorName(status));
}

struct CloseText {
    void operator()(UText* text) const { utext_close(text); }
};
using OpenText = std::unique_ptr<UText, CloseText>;

/// The text, cut at what ICU's 32-bit indices can address; no name or timecode is that long.
icu::StringPiece piece(std::string_view text)
{
    constexpr std::size_t longest = std::numeric_limits<std::int32_t>::max();
    return {text.data(), static_cast<std::int32_t>(std::min(text.size(), longest))};
}

/// Opens UTF-8 text for ICU, so that native indices are byte offsets.
OpenText open(std::string_view text)
{
    UErrorCode status = U_ZERO_ERROR;
    OpenText opened(utext_openUTF8(nullptr, text.data(), piece(text).size(), &status));
    require(status);
    return opened;
}

/// Iterates over the ends of user-perceived characters, as byte offsets.
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

    /// The last end at or before an offset, and the first at or after it.
    std::size_t before(std::size_t offset)
    {
        const auto at = static_cast<std::int32_t>(offset);
        return static_cast<std::size_t>(characters_->isBoundary(at) != 0 ? at : characters_->preceding(at));
    }
    std::size_t after(std::size_t offset)
    {
        const auto at = static_cast<std::int32_t>(offset);
        return static_cast<std::size_t>(characters_->isBoundary(at) != 0 ? at : characters_->following(at));
    }

private:
    OpenText text_;
    std::unique_ptr<icu::BreakIterator> characters_;
};

/// Where the first `count` code points end and where the last `count` begin, as byte offsets.
std::size_t endOfFirst(std::string_view text, std::size_t count)
{
    const OpenText opened = open(text);
    while (count-- > 0 && utext_next32(opened.get()) != U_SENTINEL) {
    }
    return static_cast<std::size_t>(utext_getNativeIndex(opened.get()));
}
std::size_t startOfLast(std::string_view text, std::size_t count)
{
    const OpenText opened = open(text);
    utext_setNativeIndex(opened.get(), utext_nativeLength(opened.get()));
    while (count-- > 0 && utext_previous32(opened.get()) != U_SENTINEL) {
    }
    return static_cast<std::size_t>(utext_getNativeIndex(opened.get()));
}

/// The mark that replaces a control character; empty for characters that are drawn unchanged.
std::string_view markOf(UChar32 c)
{
    switch (c) {
    case '\n':
    case '\v':
    case '\f':
    case '\r':
    case 0x85:   // next line
    case 0x2028: // line separator
    case 0x2029: // paragraph separator
        return "↵";
    case '\t':
        return "⇥";
    case 0x200E: // left-to-right mark, embedding, override, isolate
    case 0x202A:
    case 0x202D:
    case 0x2066:
        return "⇉";
    case 0x061C: // Arabic letter mark, right-to-left mark, embedding, override, isolate
    case 0x200F:
    case 0x202B:
    case 0x202E:
    case 0x2067:
        return "⇇";
    case 0x202C: // the ends of these, and the isolate that takes its direction from its text
    case 0x2068:
    case 0x2069:
        return "⇄";
    case 0xFFFC: // object replacement character: stands for an embedded object, which names never have
        return "�";
    default:
        return u_charType(c) == U_CONTROL_CHAR || U_IS_UNICODE_NONCHAR(c) ? "�" : "";
    }
}

/// The text as it is searched: without case and diacritics. It is composed again, so that a Korean syllable is one
/// character and does not match the start of another.
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

bool isText(std::string_view bytes)
{
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strFromUTF8(nullptr, 0, &length, bytes.data(), piece(bytes).size(), &status); // only counts
    return status != U_INVALID_CHAR_FOUND;
}

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

std::string withoutMiddle(std::string_view text, std::size_t most)
{
    if (text.size() <= most || endOfFirst(text, most) == text.size())
        return std::string(text);
    const std::size_t kept = most - 1; // and one for the mark
    const std::size_t head = endOfFirst(text, kept / 2);
    const std::size_t tail = startOfLast(text, kept - kept / 2);
    CharacterEnds ends(text);
    const std::size_t wholeHead = ends.before(head);
    const std::size_t wholeTail = ends.after(tail);
    std::string shorter(text.substr(0, wholeHead > 0 ? wholeHead : head));
    shorter += "…";
    return shorter += text.substr(wholeTail < text.size() ? wholeTail : tail);
}

std::string withVisibleControls(std::string_view text)
{
    std::string drawn;
    const OpenText opened = open(text);
    std::size_t start = 0;
    for (UChar32 c = utext_next32(opened.get()); c != U_SENTINEL; c = utext_next32(opened.get())) {
        const auto end = static_cast<std::size_t>(utext_getNativeIndex(opened.get()));
        const std::string_view mark = markOf(c);
        drawn += mark.empty() ? text.substr(start, end - start) : mark;
        start = end;
    }
    return drawn;
}

std::string shownText(std::string_view text)
{
    return withVisibleControls(withoutMiddle(text));
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
    rules->setStrength(icu::Collator::SECONDARY); // letters, then accents, never case
    rules->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    rules->setAttribute(UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, status); // spaces are characters
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

bool containsIgnoringCaseAndAccents(std::string_view text, std::string_view query)
{
    return searchForm(text).find(searchForm(query)) != std::string::npos;
}

} // namespace corvane
