#include "base/identifier.h"

#include "base/random.h"

#include <cstddef>
#include <span>

namespace corvane {

namespace {

constexpr std::string_view uuidDigits = "0123456789ABCDEF";
constexpr std::array<std::size_t, 4> hyphens = {8, 13, 18, 23};
constexpr std::size_t textLength = 36;

std::optional<unsigned> hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return static_cast<unsigned>(c - '0');
    if (c >= 'A' && c <= 'F')
        return static_cast<unsigned>(c - 'A') + 10;
    if (c >= 'a' && c <= 'f')
        return static_cast<unsigned>(c - 'a') + 10;
    return std::nullopt;
}

} // namespace

std::string Identifier::digits() const
{
    std::string text;
    text.reserve(2 * bytes.size());
    for (const std::uint8_t byte : bytes) {
        text += uuidDigits[byte >> 4U];
        text += uuidDigits[byte & 0xFU];
    }
    return text;
}

std::string Identifier::text() const
{
    std::string grouped = digits();
    for (const std::size_t place : hyphens)
        grouped.insert(place, 1, '-');
    return grouped;
}

std::optional<Identifier> Identifier::parse(std::string_view text)
{
    if (text.size() != textLength)
        return std::nullopt;
    for (const std::size_t place : hyphens) {
        if (text[place] != '-')
            return std::nullopt;
    }
    Identifier result;
    std::size_t at = 0;
    for (std::uint8_t& byte : result.bytes) {
        if (text[at] == '-')
            ++at;
        const auto high = hexValue(text[at]);
        const auto low = hexValue(text[at + 1]);
        if (!high || !low)
            return std::nullopt;
        byte = static_cast<std::uint8_t>(*high << 4U | *low);
        at += 2;
    }
    return result;
}

IdentifierSource randomIdentifiers()
{
    return [] {
        Identifier result;
        fillWithRandomBytes(std::as_writable_bytes(std::span(result.bytes)));
        result.bytes[6] = static_cast<std::uint8_t>((result.bytes[6] & 0x0FU) | 0x40U); // version 4: random
        result.bytes[8] = static_cast<std::uint8_t>((result.bytes[8] & 0x3FU) | 0x80U); // the RFC 4122 variant
        return result;
    };
}

} // namespace corvane
