#include "import/frame_range.h"

#include <algorithm>

namespace corvane {

std::vector<FrameRange> normalizeRanges(std::vector<FrameRange> ranges)
{
    std::ranges::sort(ranges, {}, &FrameRange::start);
    std::vector<FrameRange> merged;
    for (const FrameRange& range : ranges) {
        if (!merged.empty() && merged.back().end >= range.start)
            merged.back().end = std::max(merged.back().end, range.end);
        else
            merged.push_back(range);
    }
    return merged;
}

} // namespace corvane
