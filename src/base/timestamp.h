#pragma once

#include <string>

namespace corvane {

/// A moment of the wall clock as the files keep it: seconds since 2001-01-01 00:00:00 UTC, fractions allowed.
struct Timestamp {
    double seconds = 0;

    bool operator==(const Timestamp&) const = default;

    [[nodiscard]] static Timestamp now();
    /// ISO 8601 in UTC with whole seconds, a fraction dropped downwards: "2026-11-16T20:33:38Z". Moments outside the
    /// years 0 to 9999, and those that are no number, are written as the nearest one inside.
    [[nodiscard]] std::string isoText() const;
};

} // namespace corvane
