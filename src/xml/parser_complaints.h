#pragma once

#include <string>
#include <string_view>

namespace corvane::xml {

/// What the parser reports about its first fatal error.
struct ParserComplaint {
    int code = 0;           ///< one of the library's error codes
    std::string_view words; ///< its own words, in lines
    std::string_view name;  ///< of the entity or the prefix, if the error is about one
    std::string_view after; ///< the name that has the prefix
};

/// True for errors about a name or its prefix, which other readers refuse and libxml2 accepts.
[[nodiscard]] bool isAboutName(int code);

/// The message for the user: what is wrong, `place` as "line 3, column 5", what to do, and the parser's words in
/// brackets.
[[nodiscard]] std::string refusalText(
    const ParserComplaint& complaint, const std::string& place, std::string_view document);

} // namespace corvane::xml
