#pragma once

#include "import/frame_range.h"

#include <cstdint>

namespace corvane {

/// How a project counts time. One frame lasts frameNumerator ÷ frameDenominator seconds; both are within 1 … 1,000,000.
struct TimeBase {
    std::int64_t frameNumerator = 1;
    std::int64_t frameDenominator = 25;
    Frames length = 0;        ///< of the multicam clip, which is the whole project
    Frames timelineStart = 0; ///< the timecode of project frame 0
    bool dropFrame = false;   ///< the sequence's "tcFormat" is "DF"; labels are skipped only at some rates
};

} // namespace corvane
