#pragma once

#include "import/frame_range.h"
#include "import/time_base.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

struct SourceDocument;

/// Camera id → where it has footage, in project frames, normalised (normalizeRanges).
using Coverage = std::map<std::string, std::vector<FrameRange>, std::less<>>;

/// The frame-exact model of a project: numbers, ids and coverage for everything but the writer.
struct CutEngine : TimeBase {
    Frames sourceStart = 0; ///< the multicam clip's "start": the source time of project frame 0
    Coverage coverage;      ///< video; every angle has an entry, possibly empty
    std::string audioID;    ///< angle that supplies the multicam clip's sound; empty when not unique
    Coverage audioCoverage;
    std::shared_ptr<const SourceDocument> source; ///< none for an engine of numbers

    /// Frames × frameNumerator ÷ frameDenominator.
    [[nodiscard]] double seconds(Frames frames) const;
    /// Seconds × frameDenominator ÷ frameNumerator, not rounded.
    [[nodiscard]] double frames(double seconds) const;
    /// The camera's video coverage; empty for an unknown one.
    [[nodiscard]] const std::vector<FrameRange>& videoRanges(std::string_view camera) const;
    [[nodiscard]] const std::vector<FrameRange>& audioRanges(std::string_view camera) const;
};

} // namespace corvane
