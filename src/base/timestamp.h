#pragma once

#include <string>

namespace corvane {

/// A point in time as the files store it: seconds since 2001-01-01 00:00:00 UTC, with fractions.
struct Timestamp {
    double seconds = 0;

    bool operator==(const Timestamp&) const = default;

    [[nodiscard]] static Timestamp now();
    /// ISO 8601 in UTC, rounded down to whole seconds: "2026-11-16T20:33:38Z". Times outside the years 0 to 9999 are
    /// written as the nearest time inside, and NaN as the earliest.
    [[nodiscard]] std::string isoText() const;
    /// The same moment on the user's clock: "2026-11-16 21:33:38".
    [[nodiscard]] std::string localText() const;
};

} // namespace corvane
