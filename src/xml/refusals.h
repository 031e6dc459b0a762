#pragma once

#include <string>
#include <string_view>

namespace corvane::xml {

/// What the parser says of the first thing that it cannot go on from.
struct ParserComplaint {
    int code = 0;           ///< one of the library's error codes
    std::string_view words; ///< its own words, in lines
    std::string_view name;  ///< of the entity or the prefix, where it is about one
    std::string_view after; ///< what has the prefix
};

/// True for complaints about a name or its prefix, which other readers refuse and this library does not.
[[nodiscard]] bool isAboutName(int code);

/// A refusal for the user: what is wrong, `place` as "line 3, column 5", what to do, and the parser's words in
/// brackets.
[[nodiscard]] std::string refusalText(
    const ParserComplaint& complaint, const std::string& place, std::string_view document);

} // namespace corvane::xml
