#include "base/base64.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace corvane {

namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint32_t highestDigit = 0x3F;
constexpr std::uint8_t noDigit = 0xFF;

consteval std::array<std::uint8_t, 256> valuesByDigit()
{
    std::array<std::uint8_t, 256> values{};
    values.fill(noDigit);
    for (std::size_t n = 0; n < alphabet.size(); ++n)
        values[static_cast<unsigned char>(alphabet[n])] = static_cast<std::uint8_t>(n);
    return values;
}
constexpr std::array<std::uint8_t, 256> digitValues = valuesByDigit();

std::uint32_t byteAt(std::string_view bytes, std::size_t at)
{
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

/// Decodes four digits to three bytes and returns the values of all four, combined: above highestDigit if any character
/// is not a digit. So a long text is decoded without branches and checked once at the end.
std::uint32_t decodeGroup(const char* digits, char* bytes)
{
    const auto value = [digits](std::size_t n) -> std::uint32_t {
        return digitValues[static_cast<unsigned char>(digits[n])];
    };
    const std::uint32_t a = value(0);
    const std::uint32_t b = value(1);
    const std::uint32_t c = value(2);
    const std::uint32_t d = value(3);
    bytes[0] = static_cast<char>(a << 2U | b >> 4U);
    bytes[1] = static_cast<char>(b << 4U | c >> 2U);
    bytes[2] = static_cast<char>(c << 6U | d);
    return a | b | c | d;
}

} // namespace

std::string base64Encoded(std::string_view bytes)
{
    std::string text((bytes.size() + 2) / 3 * 4, '=');
    std::size_t out = 0;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::uint32_t group = byteAt(bytes, at) << 16U | byteAt(bytes, at + 1) << 8U | byteAt(bytes, at + 2);
        const std::size_t digits = bytes.size() - at >= 3 ? 4 : bytes.size() - at + 1;
        for (std::size_t n = 0; n < digits; ++n)
            text[out + n] = alphabet[group >> (18U - 6U * n) & 0x3FU];
        out += 4;
    }
    return text;
}

std::optional<std::string> base64Decoded(std::string_view text)
{
    if (text.size() % 4 != 0)
        return std::nullopt;
    const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
    const std::size_t wholeGroups = text.size() / 4 - (padding > 0 ? 1 : 0);
    std::string bytes(text.size() / 4 * 3, '\0');
    std::uint32_t allDigits = 0;
    for (std::size_t group = 0; group < wholeGroups; ++group)
        allDigits |= decodeGroup(text.data() + 4 * group, bytes.data() + 3 * group);
    if (padding > 0) {
        std::string last(text.substr(4 * wholeGroups, 4 - padding));
        last.append(padding, alphabet[0]);
        allDigits |= decodeGroup(last.data(), bytes.data() + 3 * wholeGroups);
    }
    if (allDigits > highestDigit)
        return std::nullopt;
    bytes.erase(bytes.size() - padding);
    return bytes;
}

} // namespace corvane
