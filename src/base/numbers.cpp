#include "base/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <version>

#ifndef __cpp_lib_to_chars
#include <locale.h>
#include <stdlib.h>
#ifdef __APPLE__
#include <xlocale.h>
#endif
#endif

namespace corvane {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// from_chars takes no plus sign, and must not see a second sign after one.
std::string_view withoutPlus(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-' && text[1] != '+')
        text.remove_prefix(1);
    return text;
}

#ifdef __cpp_lib_to_chars
bool readWhole(std::string_view text, double& value)
{
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && stop == end;
}
#else
/// For standard libraries whose from_chars does not read floating-point numbers (libc++ before 20). strtod accepts more
/// than decimal numbers and takes the decimal point from a locale, so the text is checked first and the locale is "C".
bool readWhole(std::string_view text, double& value)
{
    static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    if (plain == nullptr || text.find_first_not_of("0123456789+-.eE") != std::string_view::npos)
        return false;
    const std::string terminated(text);
    char* stop = nullptr;
    value = ::strtod_l(terminated.c_str(), &stop, plain);
    if (stop != terminated.c_str() + terminated.size())
        return false;
    // A number too small for a double is refused, as by from_chars.
    const std::string_view digits = text.substr(0, text.find_first_of("eE"));
    return value != 0 || digits.find_first_of("123456789") == std::string_view::npos;
}
#endif

} // namespace

std::optional<std::int64_t> readInteger(std::string_view text)
{
    text = withoutPlus(text);
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    return value;
}

std::optional<double> readNumber(std::string_view text)
{
    text = withoutPlus(text);
    // from_chars also reads "inf" and "nan"; a number must begin with a digit or a point.
    const std::size_t first = !text.empty() && text[0] == '-' ? 1 : 0;
    if (first >= text.size() || (!isDigit(text[first]) && text[first] != '.'))
        return std::nullopt;
    double value = 0;
    if (!readWhole(text, value) || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string fixed(double value, int digits)
{
    std::array<char, 400> buffer{}; // the largest double has 309 digits before the point
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, digits);
    return error == std::errc{} ? std::string(buffer.data(), end) : std::string();
}

std::string decimal(double value)
{
    const double size = std::abs(value);
    const bool plain = size == 0 || (size >= 0.0001 && size < 1e16);
    std::array<char, 400> buffer{};
    const auto [end, error] = std::to_chars(
        buffer.data(), buffer.data() + buffer.size(), value,
        plain ? std::chars_format::fixed : std::chars_format::scientific);
    std::string text = error == std::errc{} ? std::string(buffer.data(), end) : std::string();
    if (plain && text.find('.') == std::string::npos)
        text += ".0";
    return text;
}

std::string shortNumber(double value, std::string_view decimalSign)
{
    std::string text = fixed(value, 3);
    const std::size_t point = text.find('.');
    if (point == std::string::npos)
        return text;
    const std::size_t last = text.find_last_not_of('0');
    text.erase(last == point ? point : last + 1);
    if (text == "-0")
        return "0";
    if (point < text.size())
        text.replace(point, 1, decimalSign);
    return text;
}

} // namespace corvane
