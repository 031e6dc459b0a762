#pragma once

#include "engine/setting_limits.h"

namespace corvane {

/// The whole numbers that a control offers, both ends included, and how far one step goes.
struct StepRange {
    int minimum;
    int maximum;
    int step;
};

/// The numbers of a setting.
[[nodiscard]] constexpr StepRange stepsWithin(const Limits& limits, int step)
{
    return {static_cast<int>(limits.lowest), static_cast<int>(limits.highest), step};
}

} // namespace corvane
