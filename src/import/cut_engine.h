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

/// By camera id: where the camera has footage, in project frames, normalised (normalizeRanges).
using Coverage = std::map<std::string, std::vector<FrameRange>, std::less<>>;

/// The frame-exact model of a project: numbers, ids and coverage. Only the writer needs the document itself.
struct CutEngine : TimeBase {
    Frames sourceStart = 0; ///< the multicam clip's "start": the source time of project frame 0
    Coverage coverage;      ///< video; every angle has an entry, possibly empty
    std::string audioID;    ///< the angle that supplies the multicam clip's audio; empty if it is not unique
    Coverage audioCoverage;
    std::shared_ptr<const SourceDocument> source; ///< none for an engine made without a document

    /// Frames × frameNumerator ÷ frameDenominator.
    [[nodiscard]] double seconds(Frames frames) const;
    /// Seconds × frameDenominator ÷ frameNumerator, not rounded.
    [[nodiscard]] double frames(double seconds) const;
    /// The camera's video coverage; empty for an unknown one.
    [[nodiscard]] const std::vector<FrameRange>& videoRanges(std::string_view camera) const;
    [[nodiscard]] const std::vector<FrameRange>& audioRanges(std::string_view camera) const;
};

} // namespace corvane
