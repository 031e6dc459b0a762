#pragma once

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

/// What the window writes and enables, derived from the controller's state. Nothing here is stored.
namespace corvane {

enum class WorkspaceStage { empty, loaded, preview };
[[nodiscard]] WorkspaceStage stage(const ContentView& view);

/// Which of the buttons can be pressed.
struct Enabling {
    bool generate = false;
    bool exportEdit = false;
    bool back = false;
    bool forward = false;
    bool apply = false;
    bool saveAs = false;
    bool update = false;
    bool deletePreset = false;
    bool save = false; ///< in the save sheet
};
[[nodiscard]] Enabling enabling(const ContentView& view);

/// "Generate rough edit", or "Shuffle rough edit" beside a cut list.
[[nodiscard]] std::string primaryButtonText(const ContentView& view);
/// "Edit 2 of 3"; none while the cut list is empty.
[[nodiscard]] std::optional<std::string> positionCaption(const ContentView& view);
/// "Replaces edits 3 to 5": the later edits in whose place the next one comes; none when there are none.
[[nodiscard]] std::optional<std::string> replacedEdits(const ContentView& view);
/// Cuts, the main camera's share of them and the audio angle in a line; none while the cut list is empty.
[[nodiscard]] std::optional<std::string> summaryLine(const ContentView& view);
/// True when "Include another camera." stands below the buttons.
[[nodiscard]] bool asksForAnotherCamera(const ContentView& view);

/// The first reason why a generation would fail; none without a project. `decimalSign` is the user's.
[[nodiscard]] std::optional<std::string> setupWarning(const ContentView& view, std::string_view decimalSign = ".");
/// The ranges that no selected camera covers; none without a project and while the settings cannot be read.
[[nodiscard]] std::optional<std::vector<FrameRange>> videoGaps(const ContentView& view);
/// "2 uncovered video section(s)", or that there is none.
[[nodiscard]] std::string videoGapsText(const ContentView& view);

/// Why a button cannot be pressed; none for one that can.
struct Hints {
    std::optional<std::string> generate;
    std::optional<std::string> exportEdit;
    std::optional<std::string> back;
    std::optional<std::string> forward;
    std::optional<std::string> apply;
    std::optional<std::string> saveAs;
    std::optional<std::string> update;
    std::optional<std::string> deletePreset;
    std::optional<std::string> save; ///< in the save sheet
};
[[nodiscard]] Hints hints(const ContentView& view);

/// Name, rate and length of the loaded project in a line; empty without one.
[[nodiscard]] std::string projectLine(const ContentView& view, std::string_view decimalSign = ".");
/// "00:00:40:00 · 29.97 fps": how long the loaded project is, and its rate; empty without one.
[[nodiscard]] std::string projectFacts(const ContentView& view, std::string_view decimalSign = ".");
/// Cameras, clips and gaps of an angle in a line, for who wants to know more of it.
[[nodiscard]] std::string angleFacts(const ImportedAngle& angle);
/// What of the multicam clip an export leaves behind; none when it takes everything.
[[nodiscard]] std::optional<std::string> carryOverLine(const CutEngine& engine);
/// True for the message of an alert that tells first of all what has been done.
[[nodiscard]] bool tellsOfSuccess(std::string_view message);
/// What to ask before the window closes; none when the session is saved.
[[nodiscard]] std::optional<std::string> quitQuestion(const ContentView& view);
/// What the reader of timecodes says about a text; none when it can be read, and without a project.
[[nodiscard]] std::optional<std::string> timecodeProblem(const ContentView& view, std::string_view text);

/// What a field of a fixed section says of its text. It is advice: the text stays, and a generation judges it.
struct TimecodeAdvice {
    std::string problem;
    std::optional<std::string> instead; ///< the label to use, where drop-frame skips the one that was typed
};
/// None when the text can be read and the section's start is before its end, and without a project.
[[nodiscard]] std::optional<TimecodeAdvice> timecodeAdvice(
    const ContentView& view, const SectionDraft& section, std::string_view text);
/// "Undo Remove Section" or "Undo Delete Preset"; none when nothing can be brought back.
[[nodiscard]] std::optional<std::string> undoText(const ContentView& view);

/// One row of "Actual camera usage".
struct UsageRow {
    std::string camera; ///< id
    std::string label;
    std::string screenTime; ///< "12.00 sec"
    std::string share;      ///< "33.3%", of the project
    double percent = 0;     ///< the share as a number
    std::int64_t shots = 0;
};
/// A row for each video angle, in project order; empty while the cut list is.
[[nodiscard]] std::vector<UsageRow> usageRows(const ContentView& view);

/// The cameras that the settings use anywhere: main, included, enabled bookends, fixed sections.
[[nodiscard]] std::set<std::string> camerasInUse(const ContentView& view);
/// What labels of cameras and of audio angles can end in.
inline constexpr std::string_view excludedNote = " (excluded)";
inline constexpr std::string_view gapsNote = " (has gaps)";
/// The label of a coverage bar, with its note after cameras that are not in use.
[[nodiscard]] std::string coverageLabel(const ContentView& view, const std::string& camera, bool isInUse);
/// The angles that can be the continuous audio, labelled, with a note where the sound is not continuous.
struct AudioChoice {
    std::string id;
    std::string label;
};
[[nodiscard]] std::vector<AudioChoice> audioChoices(const ContentView& view);

/// Of each included other camera its weight in percent of all their weights, rounded half away from zero.
[[nodiscard]] std::map<std::string, int> frequencyPercents(const ContentView& view);
/// True with at least two included other cameras, which is when frequencies have an effect.
[[nodiscard]] bool frequenciesMatter(const ContentView& view);
/// "Target screen time: Main 70% · Other cameras combined 30%".
[[nodiscard]] std::string shareLabel(const ContentView& view);
/// "Minimum: 10 sec" and the like: the word and whole seconds.
[[nodiscard]] std::string secondsLabel(std::string_view word, double seconds);
/// "15 sec".
[[nodiscard]] std::string secondsLabel(double seconds);
/// Where there is footage and where there is none, with timecodes: for who cannot see the bar.
[[nodiscard]] std::string footageInWords(const CutEngine& engine, const std::vector<FrameRange>& ranges);
/// "Markers: Sermon at 00:10:00:00, Communion at 00:31:20:10."; empty without any.
[[nodiscard]] std::string markersInWords(const CutEngine& engine, const std::vector<ClipMarker>& markers);
/// "Gaps: 00:00:30:00 to 00:00:40:00.", or that there is none.
[[nodiscard]] std::string gapsInWords(const CutEngine& engine, const std::vector<FrameRange>& gaps);

} // namespace corvane
