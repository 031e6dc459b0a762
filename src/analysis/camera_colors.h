#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace corvane {

/// The colours as 0xrrggbb. Adjacent colours differ in hue and lightness.
inline constexpr std::array<std::uint32_t, 16> cameraColors = {
    0x5aa9e6, 0xe8b04b, 0x6cc28b, 0xd977a6, 0x9d8df1, 0xcfd86b, 0x4fc1c0, 0xe2795d,
    0xb7c9e2, 0xb98a5e, 0x8bd450, 0xc99bdc, 0x5f86d9, 0xf2d8a7, 0x3e9c74, 0xef9fb0};

/// "A" for the first camera, "AA" after "Z", for people who do not see colours.
[[nodiscard]] inline std::string cameraLetter(std::size_t position)
{
    constexpr std::size_t letters = 26;
    std::string letter;
    for (std::size_t rest = position + 1; rest > 0; rest = (rest - 1) / letters)
        letter.insert(letter.begin(), static_cast<char>('A' + static_cast<char>((rest - 1) % letters)));
    return letter;
}

} // namespace corvane
