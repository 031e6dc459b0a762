#pragma once

#include <compare>
#include <cstdint>

namespace corvane {

/// Four ASCII characters in 32 bits, the first in the most significant byte; spaces are significant ("ID  ").
struct FourCharacterCode {
    std::uint32_t value = 0;

    constexpr FourCharacterCode() = default;
    constexpr explicit FourCharacterCode(std::uint32_t bits) : value(bits) {}
    /// Takes a literal, so that codes in the source look as people write them. Anything but four printable ASCII
    /// characters does not compile.
    consteval FourCharacterCode(const char (&text)[5])
    {
        for (int n = 0; n < 4; ++n) {
            if (text[n] < ' ' || text[n] > '~')
                throw "a four-character code is printable ASCII"; // never runs: it stops the compiler
            value = value << 8U | static_cast<std::uint32_t>(text[n]);
        }
    }

    auto operator<=>(const FourCharacterCode&) const = default;
};

} // namespace corvane
