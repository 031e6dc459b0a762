#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers as text and back. Nothing here looks at the C locale: a point is a point for every user.
namespace corvane {

/// An optional sign and one or more ASCII digits, the whole text. None for anything else and beyond 64 bits.
[[nodiscard]] std::optional<std::int64_t> readInteger(std::string_view text);

/// A decimal number with an optional sign, point and exponent, the whole text, correctly rounded. None for anything
/// else, for blanks and for numbers that are not finite.
[[nodiscard]] std::optional<double> readNumber(std::string_view text);

/// The shortest text that reads back as the same double, with at least one digit after the point: "60.0", "2.5".
/// Below 0.0001 and from 10^16 on with an exponent: "3e-06".
[[nodiscard]] std::string decimal(double value);

/// Exactly `digits` digits after the point, the binary value rounded to nearest, ties to even: printf's "%.nf".
[[nodiscard]] std::string fixed(double value, int digits);

/// For running text: at most three digits after the sign, no trailing zeros, no grouping. `decimalSign` is the
/// user's own; files and tests leave it a point.
[[nodiscard]] std::string shortNumber(double value, std::string_view decimalSign = ".");

} // namespace corvane
