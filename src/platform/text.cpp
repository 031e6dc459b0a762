#include "platform/text.h"

#include "platform/error.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

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

/// UTF-8 for ICU, whose native indices are then byte offsets. ICU breaks texts at 32-bit indices: what lies beyond
/// is left off, as no name and no timecode is that long.
OpenText open(std::string_view text)
{
    constexpr std::size_t longest = std::numeric_limits<std::int32_t>::max();
    UErrorCode status = U_ZERO_ERROR;
    OpenText opened(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(std::min(text.size(), longest)), &status));
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

} // namespace corvane
