#pragma once

#include <string>
#include <string_view>

namespace corvane::xml {

/// What the parser says of the first thing that it cannot go on from.
struct ParserComplaint {
    int code = 0;           ///< one of the library's error codes
    std::string_view words; ///< its own words, in lines
    std::string_view name;  ///< of the entity, where it is about one
};

/// A refusal for the user: what is wrong, `place` as "line 3, column 5", what to do, and the parser's words in
/// brackets.
[[nodiscard]] std::string refusalText(
    const ParserComplaint& complaint, const std::string& place, std::string_view document);

} // namespace corvane::xml
