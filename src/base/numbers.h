#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers to text and back, independent of the C locale: the decimal point is always a point.
namespace corvane {

/// The whole text must be an optional sign and one or more ASCII digits. None for anything else and for values beyond
/// 64 bits.
[[nodiscard]] std::optional<std::int64_t> readInteger(std::string_view text);

/// The whole text must be a decimal number with an optional sign, point and exponent; it is rounded correctly. None for
/// anything else, including white space and numbers that are not finite.
[[nodiscard]] std::optional<double> readNumber(std::string_view text);

/// The shortest text that reads back as the same double, with at least one digit after the point: "60.0", "2.5".
/// Below 0.0001 and from 10^16 on with an exponent: "3e-06".
[[nodiscard]] std::string decimal(double value);

/// Exactly `digits` digits after the point, rounded to nearest, ties to even, as printf's "%.nf" does.
[[nodiscard]] std::string fixed(double value, int digits);

/// For running text: at most three digits after the decimal sign, no trailing zeros, no grouping. The window passes the
/// user's `decimalSign`; files always use a point.
[[nodiscard]] std::string shortNumber(double value, std::string_view decimalSign = ".");

} // namespace corvane
