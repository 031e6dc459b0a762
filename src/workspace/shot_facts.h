#pragma once

#include "workspace/content_view.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the cut list on screen says about its shots, read from the revision that drew it.
namespace corvane {

/// The ranges of the edit that were not drawn but asked for. Frames of the project, half-open.
struct EditMarks {
    std::optional<FrameRange> opening;
    std::optional<FrameRange> closing;
    std::vector<FixedCameraSection> sections; ///< in list order
};

/// Empty while the cut list is.
[[nodiscard]] EditMarks editMarks(const ContentView& view);

/// Why the shot ends where it does, as a sentence, where that can be told: the end of the project, a fixed section
/// or an opening or closing shot that begins or ends there, or the end of the camera's footage. `position` is one of
/// the cuts.
[[nodiscard]] std::optional<std::string> shotEndReason(
    const ContentView& view, const EditMarks& marks, std::size_t position);

/// The drawn shots that are shorter than the minimum that their edit was made with, by position and in order. Opening,
/// closing and fixed shots are as long as they were asked to be and never among them.
[[nodiscard]] std::vector<std::size_t> shortShots(const ContentView& view, const EditMarks& marks);
/// "2 shots are shorter than your minimum"; empty for none.
[[nodiscard]] std::string shortShotsText(std::size_t count);
/// What is said of one of them.
constexpr std::string_view shortShotText = "Shorter than your minimum.";

/// The cut that holds a frame of the project; `cuts` is the cut list on screen and not empty.
[[nodiscard]] std::size_t cutAt(const std::vector<Cut>& cuts, Frames frame);

/// "01:00:12;04": where the cut starts.
[[nodiscard]] std::string startLabel(const ContentView& view, const Cut& cut);
/// The length in seconds with the user's decimal sign, at most three decimals.
[[nodiscard]] std::string durationLabel(const ContentView& view, const Cut& cut, std::string_view decimalSign = ".");

/// The cut table as text: one line per cut, tabs between the columns, the titles first; tabs and ends of lines in names
/// are marks, as in the window. Empty while the cut list is.
[[nodiscard]] std::string cutListText(const ContentView& view, std::string_view decimalSign = ".");

} // namespace corvane
