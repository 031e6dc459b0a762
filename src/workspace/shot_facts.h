#pragma once

#include "workspace/content_view.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Facts about the shots in the cut list on screen, derived from the revision that it belongs to.
namespace corvane {

/// The ranges of the edit that the user fixed rather than left to chance. Half-open, in project frames.
struct EditMarks {
    std::optional<FrameRange> opening;
    std::optional<FrameRange> closing;
    std::vector<FixedCameraSection> sections; ///< in list order
};

/// Empty if the cut list is empty.
[[nodiscard]] EditMarks editMarks(const ContentView& view);

/// Why a shot ends where it does, as a sentence, if a reason is known: the end of the project, a fixed section, opening
/// or closing shot that begins or ends there, or the end of the camera's footage. `position` must be the index of a
/// cut.
[[nodiscard]] std::optional<std::string> shotEndReason(
    const ContentView& view, const EditMarks& marks, std::size_t position);

/// The indices, in order, of the shots that are shorter than the minimum with which their edit was made. Opening,
/// closing and fixed shots have the length that the user asked for and are never among them.
[[nodiscard]] std::vector<std::size_t> shortShots(const ContentView& view, const EditMarks& marks);
/// "2 shots are shorter than your minimum"; empty if there are none.
[[nodiscard]] std::string shortShotsText(std::size_t count);
/// The text for one of them.
constexpr std::string_view shortShotText = "Shorter than your minimum.";

/// The cut that contains a project frame; `cuts` is the cut list on screen and must not be empty.
[[nodiscard]] std::size_t cutAt(const std::vector<Cut>& cuts, Frames frame);

/// Where the cut starts: "01:00:12;04".
[[nodiscard]] std::string startLabel(const ContentView& view, const Cut& cut);
/// The length in seconds with the user's decimal sign, at most three decimals.
[[nodiscard]] std::string durationLabel(const ContentView& view, const Cut& cut, std::string_view decimalSign = ".");

/// The cut table as text: a line of titles, then one line per cut, with tabs between the columns. Tabs and line breaks
/// in names are shown as marks, as in the window. Empty if the cut list is empty.
[[nodiscard]] std::string cutListText(const ContentView& view, std::string_view decimalSign = ".");

} // namespace corvane
