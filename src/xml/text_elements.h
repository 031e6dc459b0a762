#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane::xml {

/// True for the elements that hold text in FCPXML: every blank in them counts, whatever else they hold.
[[nodiscard]] constexpr bool isTextElement(std::string_view name)
{
    constexpr std::array<std::string_view, 7> names = {"note", "text",     "text-style", "string",
                                                       "data", "bookmark", "reserved"};
    return std::ranges::find(names, name) != names.end();
}

/// True for text that only sets elements apart. A carriage return is more than that: it can only have been written as
/// a reference.
[[nodiscard]] constexpr bool isBlank(std::string_view text)
{
    return std::ranges::all_of(text, [](char each) { return each == ' ' || each == '\n' || each == '\t'; });
}

} // namespace corvane::xml
