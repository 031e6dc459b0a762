#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::test {

/// A text between quotes in a C++ source; those that the compiler joins are one.
struct SourceText {
    std::string text;
    std::string calls; ///< what it is given to, directly: "addHelp(tr(" for a text in addHelp(tr("…"))
    bool operator==(const SourceText&) const = default;
};

/// The texts of a source in their order. Comments, includes and single characters have none.
[[nodiscard]] std::vector<SourceText> textsOf(std::string_view source);

/// What people read of a text as it stands: the pieces between line breaks, tabs and places for values ("%1"), without
/// blanks at their ends and, in tr("&File"), the marks of shortcuts.
[[nodiscard]] std::vector<std::string> piecesOf(const SourceText& text);

} // namespace corvane::test
