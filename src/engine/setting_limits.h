#pragma once

#include <algorithm>

namespace corvane {

/// What a number of the settings may be, in the unit of its field and with both ends.
struct Limits {
    double lowest = 0;
    double highest = 0;

    /// False for what is no number.
    [[nodiscard]] constexpr bool hold(double value) const { return value >= lowest && value <= highest; }
    /// True for a range whose ends they hold, the lower at or below the upper.
    [[nodiscard]] constexpr bool holdRange(double lower, double upper) const
    {
        return lowest <= lower && lower <= upper && upper <= highest;
    }
    /// True when they hold the value of each camera.
    template <class ValuesByCamera>
    [[nodiscard]] bool holdAll(const ValuesByCamera& values) const
    {
        return std::ranges::all_of(values, [this](const auto& entry) { return hold(entry.second); });
    }
};

namespace limits {

inline constexpr Limits mainShare{10, 90};     // percent
inline constexpr Limits averageShot{4, 20};    // seconds, as all but the frequency
inline constexpr Limits shotLength{1, 120};    // of each minimum and maximum
inline constexpr Limits bookendLength{1, 120}; // of the opening and the closing shot
inline constexpr Limits returnTime{0, 600};
inline constexpr Limits frequency{1, 10}; // a weight beside those of the other cameras

} // namespace limits

/// The frequency of a camera for which none was chosen.
inline constexpr double usualFrequency = 5;

} // namespace corvane
