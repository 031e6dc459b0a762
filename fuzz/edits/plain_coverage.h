#pragma once

#include "xml/document.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::test {

/// Time in units of 1/240000 s, in which the frames of every rate, half frames, and audio samples at 48 kHz are whole
/// numbers.
using Ticks = std::int64_t;
[[nodiscard]] Ticks ticksOf(std::string_view time);

/// What one project frame of an angle shows and plays.
struct PaintedFrame {
    bool video = false;
    bool audio = false;
    bool operator==(const PaintedFrame&) const = default;
};

/// Thrown for a reference to a compound clip that is inside that clip, or among the clips connected to another
/// reference to it.
struct Circle : std::logic_error {
    Circle() : std::logic_error("a compound clip leads to itself") {}
};

/// For each frame of the project separately, checks from the angle down to the media whether a media clip covers all of
/// it. This is the definition of coverage, without spans, sorting or rounding. Reads documents of randomDocument();
/// throws Circle if there is one.
[[nodiscard]] std::vector<PaintedFrame> paintedAngle(const xml::Document& document, std::string_view angleID);

/// The number of the angle's media clips, counted one by one; those of a compound clip at each of its uses.
[[nodiscard]] std::int64_t countedClips(const xml::Document& document, std::string_view angleID);

} // namespace corvane::test
