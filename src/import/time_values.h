#pragma once

#include "import/frame_range.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// FCPXML writes a time as a rational number of seconds: "3003/30000s", "5s", "0s". A text of more than 100 bytes is
/// not read as a time; real ones have twenty or so.
namespace corvane {

/// numerator ÷ denominator seconds, not reduced; the denominator is positive. Frame durations are rational times too.
struct RationalTime {
    std::int64_t numerator = 0;
    std::int64_t denominator = 1;
    bool operator==(const RationalTime&) const = default;
};

/// Reads whole numbers only. Empty pieces between slashes are ignored: "/5s" and "5/s" are 5 seconds. Refuses anything
/// else, denominators below 1 and numbers beyond 64 bits.
[[nodiscard]] RationalTime parseRationalTime(std::string_view text);

/// Reads a time that must be on a frame boundary; it is never rounded. Refuses what parseRationalTime refuses, times
/// between two frames, and counts beyond ±999,999,999 frames.
[[nodiscard]] Frames alignedFrames(std::string_view text, std::int64_t frameNumerator, std::int64_t frameDenominator);

/// Reads seconds as a double; decimal forms such as "2.5s" are allowed. None stands for a missing attribute, which is
/// refused like a text that does not end in "s".
[[nodiscard]] double parseSeconds(std::optional<std::string_view> text);

/// Frames as FCPXML time, not reduced: frame 25 at 100/2500 is "2500/2500s", frame 0 is "0/2500s".
void appendTimeString(std::string& out, Frames frames, std::int64_t frameNumerator, std::int64_t frameDenominator);
[[nodiscard]] std::string timeString(Frames frames, std::int64_t frameNumerator, std::int64_t frameDenominator);

} // namespace corvane
