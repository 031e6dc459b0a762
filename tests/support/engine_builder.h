#pragma once

#include "import/cut_engine.h"

#include <algorithm>
#include <utility>

namespace corvane::test {

struct FrameDuration {
    std::int64_t numerator, denominator; ///< seconds
};

/// An engine of numbers without a document. The project is as long as `length`, or else as its longest footage.
[[nodiscard]] inline CutEngine engineOf(FrameDuration frame, Coverage coverage, Frames length = 0)
{
    CutEngine engine;
    engine.frameNumerator = frame.numerator;
    engine.frameDenominator = frame.denominator;
    engine.length = length;
    for (const auto& [camera, stretches] : coverage)
        engine.length = length > 0 || stretches.empty() ? engine.length : std::max(engine.length, stretches.back().end);
    engine.coverage = std::move(coverage);
    return engine;
}

[[nodiscard]] inline CutEngine engineOf(std::int64_t framesPerSecond, Coverage coverage, Frames length = 0)
{
    return engineOf({1, framesPerSecond}, std::move(coverage), length);
}

} // namespace corvane::test
