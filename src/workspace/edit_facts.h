#pragma once

#include "workspace/content_view.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// What is told of the edits of the history, each derived from its revision alone. Texts with numbers use the same
/// forms as the tables of the edit on screen.
namespace corvane {

/// True if the cut list on screen is that of the edit at this position.
[[nodiscard]] bool isOnScreen(const ContentView& view, std::int64_t position);

/// Its main camera's share of the project: "67.2%".
[[nodiscard]] std::string mainShareText(const ContentView& view, const EditRevision& edit);
/// "A (Camera 1): 67.2%" for each camera, in project order.
[[nodiscard]] std::vector<std::string> shareTexts(const ContentView& view, const EditRevision& edit);
/// The length of its shortest cut: "2.4 sec".
[[nodiscard]] std::string shortestShotText(
    const ContentView& view, const EditRevision& edit, std::string_view decimalSign = ".");
/// All of it in a line, for people who do not see the list: "Edit 8, on screen, made 2026-11-26 14:32:05, 48 cuts, main
/// camera 67.2%, shortest shot 2.4 sec".
[[nodiscard]] std::string editInWords(
    const ContentView& view, std::int64_t position, std::string_view decimalSign = ".");

} // namespace corvane
