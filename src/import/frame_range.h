#pragma once

#include <cstdint>
#include <vector>

namespace corvane {

/// A number of frames, or a position, at the project's frame rate. Frame 0 is the first frame of the project's
/// timeline.
using Frames = std::int64_t;

/// Frame counts read from a document are between minus and plus this value.
inline constexpr Frames largestFrameCount = 999'999'999;

/// A half-open range [start, end) of project frames.
struct FrameRange {
    Frames start = 0;
    Frames end = 0;
    bool operator==(const FrameRange&) const = default;

    [[nodiscard]] bool holds(Frames from, Frames to) const { return start <= from && to <= end; }
};

/// Sorts the ranges by start and merges those that touch or overlap. There is no tolerance: a gap of one frame stays a
/// gap.
[[nodiscard]] std::vector<FrameRange> normalizeRanges(std::vector<FrameRange> ranges);

} // namespace corvane
