#pragma once

#include <algorithm>

namespace corvane {

/// The closed interval in which a number in the settings must be, in the unit of its field.
struct Limits {
    double lowest = 0;
    double highest = 0;

    /// False for NaN.
    [[nodiscard]] constexpr bool hold(double value) const { return value >= lowest && value <= highest; }
    /// True if both ends of a range are within the limits, and `lower` is not above `upper`.
    [[nodiscard]] constexpr bool holdRange(double lower, double upper) const
    {
        return lowest <= lower && lower <= upper && upper <= highest;
    }
    /// True if the value for each camera is within the limits.
    template <class ValuesByCamera>
    [[nodiscard]] bool holdAll(const ValuesByCamera& values) const
    {
        return std::ranges::all_of(values, [this](const auto& entry) { return hold(entry.second); });
    }
};

namespace limits {

inline constexpr Limits mainShare{10, 90};     // percent
inline constexpr Limits averageShot{4, 20};    // seconds, like all below except the frequency
inline constexpr Limits shotLength{1, 120};    // of each minimum and maximum
inline constexpr Limits bookendLength{1, 120}; // of the opening and the closing shot
inline constexpr Limits returnTime{0, 600};
inline constexpr Limits frequency{1, 10}; // a weight relative to those of the other cameras

} // namespace limits

/// The frequency of a camera if none was chosen.
inline constexpr double usualFrequency = 5;

} // namespace corvane
