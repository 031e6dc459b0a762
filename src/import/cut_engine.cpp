#include "import/cut_engine.h"

namespace corvane {

namespace {

const std::vector<FrameRange>& rangesOf(const Coverage& coverage, std::string_view camera)
{
    static const std::vector<FrameRange> none;
    const auto found = coverage.find(camera);
    return found == coverage.end() ? none : found->second;
}

} // namespace

double CutEngine::seconds(Frames count) const
{
    return static_cast<double>(count) * static_cast<double>(frameNumerator) / static_cast<double>(frameDenominator);
}

double CutEngine::frames(double time) const
{
    return time * static_cast<double>(frameDenominator) / static_cast<double>(frameNumerator);
}

const std::vector<FrameRange>& CutEngine::videoRanges(std::string_view camera) const
{
    return rangesOf(coverage, camera);
}

const std::vector<FrameRange>& CutEngine::audioRanges(std::string_view camera) const
{
    return rangesOf(audioCoverage, camera);
}

} // namespace corvane
