#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane::xml {

/// True for the elements that contain text in FCPXML: all white space in them is kept, whatever else they contain.
[[nodiscard]] constexpr bool isTextElement(std::string_view name)
{
    constexpr std::array<std::string_view, 7> names = {"note", "text",     "text-style", "string",
                                                       "data", "bookmark", "reserved"};
    return std::ranges::find(names, name) != names.end();
}

/// True for white space that only separates elements. A carriage return does not count, because it must have been
/// written deliberately, as a character reference.
[[nodiscard]] constexpr bool isBlank(std::string_view text)
{
    return std::ranges::all_of(text, [](char each) { return each == ' ' || each == '\n' || each == '\t'; });
}

} // namespace corvane::xml
