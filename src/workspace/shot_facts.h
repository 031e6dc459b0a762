#pragma once

#include "analysis/shot_reasons.h"
#include "workspace/content_view.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Facts about the shots in the cut list on screen, derived from the revision that it belongs to.
namespace corvane {

/// Empty while the cut list is.
[[nodiscard]] EditMarks editMarks(const ContentView& view);

/// Why the shots of the cut list on screen begin on their cameras and end where they do. It stays what it is when
/// another edit is shown, and has no reasons while there is none.
class EditReasons {
public:
    EditReasons() = default;
    explicit EditReasons(const ContentView& view);

    /// Of the cut at this position; empty where it cannot be told.
    [[nodiscard]] std::string begins(std::size_t position) const;
    [[nodiscard]] std::string ends(std::size_t position) const;
    /// Both in a line.
    [[nodiscard]] std::string line(std::size_t position) const;

private:
    std::shared_ptr<const LoadedDocument> loaded_;
    SharedRevision revision_;
    std::shared_ptr<const ShotReasons> reasons_;
};

/// The drawn shots that are shorter than the minimum that their edit was made with, by position and in order. Opening,
/// closing and fixed shots are as long as they were asked to be and never among them.
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

/// The lines of these cuts in that text; `positions` are cuts of the list on screen.
[[nodiscard]] std::string cutLines(
    const ContentView& view, const std::vector<std::size_t>& positions, std::string_view decimalSign = ".");

} // namespace corvane
