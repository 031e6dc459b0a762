#pragma once

#include "engine/setting_limits.h"

namespace corvane {

/// The closed range of whole numbers that a control offers, and the size of one step.
struct StepRange {
    int minimum;
    int maximum;
    int step;
};

/// The range for a setting with these limits.
[[nodiscard]] constexpr StepRange stepsWithin(const Limits& limits, int step)
{
    return {static_cast<int>(limits.lowest), static_cast<int>(limits.highest), step};
}

} // namespace corvane
