#pragma once

#include "analysis/usable_ranges.h"
#include "import/clip_markers.h"
#include "import/imported_project.h"
#include "workspace/content_view.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// The texts and enabled states in the window, all derived from the controller's state. Nothing here is stored.
namespace corvane {

enum class WorkspaceStage { empty, loaded, preview };
[[nodiscard]] WorkspaceStage stage(const ContentView& view);

/// "Generate rough edit", or "Shuffle rough edit" beside a cut list.
[[nodiscard]] std::string primaryButtonText(const ContentView& view);
/// "Edit 2 of 3"; none if the cut list is empty.
[[nodiscard]] std::optional<std::string> positionCaption(const ContentView& view);
/// "Replaces edits 3 to 5": the later edits that a new one would replace; none if there are none.
[[nodiscard]] std::optional<std::string> replacedEdits(const ContentView& view);
/// "The next new edit replaces edits 3 to 5.", or after which edit it comes.
[[nodiscard]] std::string nextEditText(const ContentView& view);
/// The number of cuts, the main camera's share and the audio angle in one line; none if the cut list is empty.
[[nodiscard]] std::optional<std::string> summaryLine(const ContentView& view);
/// True if "Include another camera." is shown below the buttons.
[[nodiscard]] bool asksForAnotherCamera(const ContentView& view);

/// The first reason why generating would fail; none without a project. `decimalSign` is the user's.
[[nodiscard]] std::optional<std::string> setupWarning(const ContentView& view, std::string_view decimalSign = ".");
/// The ranges that no selected camera covers; none without a project or if the settings cannot be read.
[[nodiscard]] std::optional<std::vector<FrameRange>> videoGaps(const ContentView& view);
/// "2 uncovered video section(s)", or the text for no gaps.
[[nodiscard]] std::string videoGapsText(const ContentView& view);

/// Name, rate, start and end of the loaded project in a line; empty without one.
[[nodiscard]] std::string projectLine(const ContentView& view, std::string_view decimalSign = ".");
/// "00:00:40:00 · 29.97 fps": the loaded project's length and rate; empty without a project.
[[nodiscard]] std::string projectFacts(const ContentView& view, std::string_view decimalSign = ".");
/// The cameras, clips and gaps of an angle in one line, for anyone who wants the details.
[[nodiscard]] std::string angleFacts(const ImportedAngle& angle);
/// What an export does not carry over from the multicam clip; none if it carries over everything.
[[nodiscard]] std::optional<std::string> carryOverLine(const CutEngine& engine);
/// True if an alert's message first of all reports a success.
[[nodiscard]] bool tellsOfSuccess(std::string_view message);
/// The question to ask before the window closes; none if the session is saved.
[[nodiscard]] std::optional<std::string> quitQuestion(const ContentView& view);
/// Why a timecode text cannot be read; none if it can, or without a project.
[[nodiscard]] std::optional<std::string> timecodeProblem(const ContentView& view, std::string_view text);

/// What a timecode field of a fixed section says about its text. It is only advice: the text is kept, and checked when
/// an edit is generated.
struct TimecodeAdvice {
    std::string problem;
    std::optional<std::string> instead; ///< the label to use if drop-frame skips the typed one
};
/// None if the text can be read and the section's start is before its end, or without a project.
[[nodiscard]] std::optional<TimecodeAdvice> timecodeAdvice(
    const ContentView& view, const SectionDraft& section, std::string_view text);
/// "Undo Main Share" (`before`) or "Redo Main Share" (`after`); none if there is nothing to undo or redo.
[[nodiscard]] std::optional<std::string> undoText(
    const ContentView& view, UndoStep::Side side = UndoStep::Side::before);

/// One row of "Actual camera usage".
struct UsageRow {
    std::string camera; ///< id
    std::string label;
    std::string screenTime; ///< "12.00 sec"
    std::string share;      ///< "33.3%", of the project
    double percent = 0;     ///< the share as a number
    std::int64_t shots = 0;
};
/// One row per video angle, in project order; empty if the cut list is empty.
[[nodiscard]] std::vector<UsageRow> usageRows(const ContentView& view);
/// The same for another cut list of the loaded project.
[[nodiscard]] std::vector<UsageRow> usageRows(const ContentView& view, const std::vector<Cut>& cuts);

/// The cameras that the settings use anywhere: the main camera, included cameras, enabled bookends and fixed sections.
[[nodiscard]] std::set<std::string> camerasInUse(const ContentView& view);
/// The notes that can follow the labels of cameras and audio angles.
inline constexpr std::string_view excludedNote = " (excluded)";
inline constexpr std::string_view gapsNote = " (has gaps)";
/// The label of a coverage bar; cameras that are not in use get a note.
[[nodiscard]] std::string coverageLabel(const ContentView& view, const std::string& camera, bool isInUse);
/// An angle that can be the continuous audio. Its label has a note if the audio is not continuous.
struct AudioChoice {
    std::string id;
    std::string label;
};
/// In project order.
[[nodiscard]] std::vector<AudioChoice> audioChoices(const ContentView& view);

/// For each included other camera, its weight as a percentage of all their weights, rounded half away from zero.
[[nodiscard]] std::map<std::string, int> frequencyPercents(const ContentView& view);
/// True if at least two other cameras are included; only then frequencies have an effect.
[[nodiscard]] bool frequenciesMatter(const ContentView& view);
/// "Target screen time: Main 70% · Other cameras combined 30%".
[[nodiscard]] std::string shareLabel(const ContentView& view);
/// A text such as "Minimum: 10 sec": the word and whole seconds.
[[nodiscard]] std::string secondsLabel(std::string_view word, double seconds);
/// "15 sec".
[[nodiscard]] std::string secondsLabel(double seconds);
/// Where there is footage and where there is none, with timecodes, for people who cannot see the bar.
[[nodiscard]] std::string footageInWords(const CutEngine& engine, const std::vector<FrameRange>& ranges);
/// "Markers: Sermon at 00:10:00:00, Communion at 00:31:20:10."; empty if there are none.
[[nodiscard]] std::string markersInWords(const CutEngine& engine, const std::vector<ClipMarker>& markers);
/// "Usable: 00:00:10:00 to 00:00:30:00.", or that all of it is.
[[nodiscard]] std::string usableInWords(const CutEngine& engine, const UsableRanges& usable);
/// "Gaps: 00:00:30:00 to 00:00:40:00.", or that there is none.
[[nodiscard]] std::string gapsInWords(const CutEngine& engine, const std::vector<FrameRange>& gaps);

} // namespace corvane
