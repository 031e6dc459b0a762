#pragma once

#include <cstddef>
#include <string_view>

/// The rules of text that Unicode decides. Texts are UTF-8; malformed bytes count as one character each.
namespace corvane {

/// The text without the white space and line breaks at both ends (Unicode's White_Space).
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The first `count` user-perceived characters (extended grapheme clusters), or the whole text when it has no more.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// As many whole user-perceived characters from the start as fit into `bytes` bytes.
[[nodiscard]] std::string_view charactersWithin(std::string_view text, std::size_t bytes);

} // namespace corvane
