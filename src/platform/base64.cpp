#include "platform/base64.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace corvane {

namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t noDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> digitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(noDigit);
    for (std::size_t n = 0; n < alphabet.size(); ++n)
        values[static_cast<unsigned char>(alphabet[n])] = static_cast<std::uint8_t>(n);
    return values;
}();

std::uint32_t byteAt(std::string_view bytes, std::size_t at)
{
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
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
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    const std::size_t digits = text.size() - padding;
    for (std::size_t at = 0; at < text.size(); at += 4) {
        std::uint32_t group = 0;
        for (std::size_t n = 0; n < 4; ++n) {
            const std::uint8_t value = at + n < digits ? digitValues[static_cast<unsigned char>(text[at + n])] : 0;
            if (value == noDigit)
                return std::nullopt;
            group = group << 6U | value;
        }
        bytes += static_cast<char>(group >> 16U);
        bytes += static_cast<char>(group >> 8U & 0xFFU);
        bytes += static_cast<char>(group & 0xFFU);
    }
    bytes.resize(bytes.size() - padding);
    return bytes;
}

} // namespace corvane
