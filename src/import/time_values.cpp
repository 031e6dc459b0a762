#include "import/time_values.h"

#include "base/numbers.h"
#include "import/final_cut_import_error.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace corvane {

namespace {

constexpr std::size_t longestTime = 100;

/// Empty pieces between slashes are passed over.
std::optional<RationalTime> readRationalTime(std::string_view text)
{
    if (text.size() > longestTime || !text.ends_with('s'))
        return std::nullopt;
    std::array<std::string_view, 2> pieces;
    std::size_t count = 0;
    for (std::string_view rest = text.substr(0, text.size() - 1); !rest.empty();) {
        const std::string_view piece = rest.substr(0, rest.find('/'));
        rest.remove_prefix(std::min(piece.size() + 1, rest.size()));
        if (piece.empty())
            continue;
        if (count == pieces.size())
            return std::nullopt;
        pieces.at(count++) = piece;
    }
    const auto numerator = readInteger(pieces[0]);
    const auto denominator = count == 2 ? readInteger(pieces[1]) : std::optional<std::int64_t>(1);
    if (!numerator || !denominator || *denominator <= 0)
        return std::nullopt;
    return RationalTime{*numerator, *denominator};
}

/// `text` has no final "s" any more. An empty piece is no number here.
std::optional<double> readSeconds(std::string_view text)
{
    const std::size_t slash = text.find('/');
    const auto numerator = readNumber(text.substr(0, slash));
    if (!numerator)
        return std::nullopt;
    if (slash == std::string_view::npos)
        return numerator;
    const auto divisor = readNumber(text.substr(slash + 1)); // refuses a second slash, which is not part of a number
    if (!divisor || !(*divisor > 0))
        return std::nullopt;
    const double seconds = *numerator / *divisor;
    return std::isfinite(seconds) ? std::optional(seconds) : std::nullopt;
}

} // namespace

RationalTime parseRationalTime(std::string_view text)
{
    const auto time = readRationalTime(text);
    if (!time)
        throw FinalCutImportError::invalid("Invalid XML time: " + std::string(text));
    return *time;
}

Frames alignedFrames(std::string_view text, std::int64_t frameNumerator, std::int64_t frameDenominator)
{
    const RationalTime time = parseRationalTime(text);
    std::int64_t dividend = 0;
    std::int64_t divisor = 0;
    const bool overflow = __builtin_mul_overflow(time.numerator, frameDenominator, &dividend) ||
                          __builtin_mul_overflow(time.denominator, frameNumerator, &divisor);
    if (overflow || divisor <= 0 || dividend % divisor != 0)
        throw FinalCutImportError::invalid("This prototype needs timing aligned to the project frame rate.");
    const Frames frames = dividend / divisor;
    if (frames < -largestFrameCount || frames > largestFrameCount)
        throw FinalCutImportError::invalid("This time value exceeds the prototype's supported range.");
    return frames;
}

double parseSeconds(std::optional<std::string_view> text)
{
    if (!text || text->size() > longestTime || !text->ends_with('s'))
        throw FinalCutImportError::invalid("The export contains a missing or invalid time value.");
    const auto seconds = readSeconds(text->substr(0, text->size() - 1));
    if (!seconds)
        throw FinalCutImportError::invalid("The export contains an invalid time value: " + std::string(*text));
    return *seconds;
}

void appendTimeString(std::string& out, Frames frames, std::int64_t frameNumerator, std::int64_t frameDenominator)
{
    const auto append = [&out](std::int64_t number, char after) {
        std::array<char, 24> text{}; // holds any 64-bit number
        out.append(text.data(), std::to_chars(text.begin(), text.end(), number).ptr);
        out += after;
    };
    append(frames * frameNumerator, '/');
    append(frameDenominator, 's');
}

std::string timeString(Frames frames, std::int64_t frameNumerator, std::int64_t frameDenominator)
{
    std::string text;
    appendTimeString(text, frames, frameNumerator, frameDenominator);
    return text;
}

} // namespace corvane
