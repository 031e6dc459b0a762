#pragma once

#include "xml/document.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::test {

/// Whole numbers of 1/240000 s: the frames of every rate, their halves and the samples of sound at 48 kHz.
using Ticks = std::int64_t;
[[nodiscard]] Ticks ticksOf(std::string_view time);

/// What one project frame of an angle shows and plays.
struct PaintedFrame {
    bool video = false;
    bool audio = false;
    bool operator==(const PaintedFrame&) const = default;
};

/// A reference to a compound clip that stands inside it, or among the clips connected to another reference to it.
struct Circle : std::logic_error {
    Circle() : std::logic_error("a compound clip leads to itself") {}
};

/// Asks for each frame of the project alone, from the angle down to the media, whether some media clip holds it whole:
/// the plain meaning of coverage, without spans, sorting or rounding. Reads documents of randomDocument(); throws
/// Circle where there is one.
[[nodiscard]] std::vector<PaintedFrame> paintedAngle(const xml::Document& document, std::string_view angleID);

/// The angle's media clips one by one, those of a compound clip at each of its uses.
[[nodiscard]] std::int64_t countedClips(const xml::Document& document, std::string_view angleID);

} // namespace corvane::test
