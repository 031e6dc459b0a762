#include "workspace/captions.h"

#include "base/numbers.h"
#include "base/text.h"
#include "engine/coverage_report.h"
#include "engine/setting_limits.h"
#include "export/carry_over.h"
#include "export/hand_off.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

std::string wholeNumber(double value)
{
    return fixed(std::round(value), 0);
}

const std::string wholeProjectCovered =
    "Selected cameras cover the whole project, including all fixed camera sections.";

/// The title followed by the list, each item as `words` puts it; empty for an empty list.
template <class Each, class Words>
std::string listInWords(std::string_view title, const std::vector<Each>& list, const Words& words)
{
    constexpr std::size_t most = 50; // more would be too long to listen to
    std::string text;
    for (std::size_t i = 0; i < std::min(most, list.size()); ++i) {
        text += i == 0 ? std::string(title) : ", ";
        text += words(list[i]);
    }
    if (list.size() > most)
        text += " and " + std::to_string(list.size() - most) + " more";
    return text.empty() ? text : text + ".";
}

std::string rangesInWords(const CutEngine& engine, std::string_view title, const std::vector<FrameRange>& ranges)
{
    return listInWords(title, ranges, [&engine](const FrameRange& range) {
        return timecodeLabel(engine, range.start) + " to " + timecodeLabel(engine, range.end);
    });
}

/// "edits 3 to 5": those after the current one; none if it is the last.
std::optional<std::string> laterEdits(const EditHistory& history)
{
    const auto last = static_cast<std::int64_t>(history.items.size());
    const std::int64_t first = history.index + 2; // people count from 1
    if (first > last)
        return std::nullopt;
    return first == last ? "edit " + std::to_string(first)
                         : "edits " + std::to_string(first) + " to " + std::to_string(last);
}

} // namespace

WorkspaceStage stage(const ContentView& view)
{
    if (!view.state().loaded)
        return WorkspaceStage::empty;
    return view.state().cuts().empty() ? WorkspaceStage::loaded : WorkspaceStage::preview;
}

std::string primaryButtonText(const ContentView& view)
{
    return view.state().cuts().empty() ? "Generate rough edit" : "Shuffle rough edit";
}

std::optional<std::string> positionCaption(const ContentView& view)
{
    const EditHistory& history = view.state().history;
    if (view.state().cuts().empty())
        return std::nullopt;
    return "Edit " + std::to_string(history.index + 1) + " of " + std::to_string(history.items.size());
}

std::optional<std::string> replacedEdits(const ContentView& view)
{
    const auto later = laterEdits(view.state().history);
    return later ? std::optional("Replaces " + *later) : std::nullopt;
}

std::string nextEditText(const ContentView& view)
{
    const EditHistory& history = view.state().history;
    if (history.items.empty())
        return "There is no edit yet.";
    const auto later = laterEdits(history);
    return later ? "The next new edit replaces " + *later + "."
                 : "The next new edit comes after edit " + std::to_string(history.items.size()) + ".";
}

std::optional<std::string> summaryLine(const ContentView& view)
{
    const WorkspaceState& state = view.state();
    if (state.cuts().empty())
        return std::nullopt;
    Frames main = 0;
    Frames all = 0;
    for (const Cut& cut : state.cuts()) {
        all += cut.duration;
        main += cut.angle == state.settings.mainCamera ? cut.duration : 0;
    }
    const double percent = static_cast<double>(main) / static_cast<double>(all) * 100;
    return std::to_string(state.cuts().size()) + " cuts · Main camera: " + wholeNumber(percent) +
           "% · Audio: " + view.angleLabel(state.settings.audio);
}

bool asksForAnotherCamera(const ContentView& view)
{
    return view.state().loaded && view.includedOtherCameras().empty();
}

std::optional<std::string> setupWarning(const ContentView& view, std::string_view decimalSign)
{
    const auto& loaded = view.state().loaded;
    return loaded ? setupWarning(loaded->imported, loaded->engine, view.state().settings, decimalSign) : std::nullopt;
}

std::optional<std::vector<FrameRange>> videoGaps(const ContentView& view)
{
    const auto& loaded = view.state().loaded;
    if (!loaded)
        return std::nullopt;
    CoverageReport report = selectedCoverage(loaded->imported, loaded->engine, view.state().settings);
    if (report.message)
        return std::nullopt;
    return uncoveredStretches(std::move(report.covered), loaded->engine.length);
}

std::string videoGapsText(const ContentView& view)
{
    const auto gaps = videoGaps(view);
    if (!gaps)
        return "";
    return gaps->empty() ? wholeProjectCovered : std::to_string(gaps->size()) + " uncovered video section(s)";
}

std::string projectLine(const ContentView& view, std::string_view decimalSign)
{
    const auto& loaded = view.state().loaded;
    if (!loaded)
        return "";
    const CutEngine& engine = loaded->engine;
    return loaded->imported.name + " · " + shortNumber(loaded->imported.framesPerSecond, decimalSign) +
           " frames a second · " + timecodeLabel(engine, 0) + " to " + timecodeLabel(engine, engine.length);
}

std::string projectFacts(const ContentView& view, std::string_view decimalSign)
{
    const auto& loaded = view.state().loaded;
    if (!loaded)
        return "";
    const CutEngine& engine = loaded->engine;
    return timecodeText(
               engine.length, engine.frameNumerator, engine.frameDenominator,
               engine.dropFrame ? FrameCount::dropFrame : FrameCount::nonDrop) +
           " · " + shortNumber(loaded->imported.framesPerSecond, decimalSign) + " fps";
}

std::string angleFacts(const ImportedAngle& angle)
{
    std::string facts = angle.cameras.empty() ? "" : angle.cameras + " · ";
    facts += std::to_string(angle.clipCount) + (angle.clipCount == 1 ? " clip · " : " clips · ");
    return facts + std::to_string(angle.gapCount) + (angle.gapCount == 1 ? " gap" : " gaps");
}

std::optional<std::string> carryOverLine(const CutEngine& engine)
{
    const CarryOver left = carryOver(engine);
    std::string line;
    const auto list = [&line](std::string_view title, const std::vector<std::string>& names) {
        for (const std::string& name : names)
            line += (&name == &names.front() ? std::string(title) : ", ") + name;
        line += names.empty() ? "" : ".";
    };
    list("Not carried over from the multicam clip: ", left.leftOut);
    list(
        line.empty() ? "Following a shape of another clip: " : " Following a shape of another clip: ",
        left.lostTracking);
    return line.empty() ? std::nullopt : std::optional(line);
}

bool tellsOfSuccess(std::string_view message)
{
    return message.starts_with(exportSaved);
}

std::optional<std::string> quitQuestion(const ContentView& view)
{
    const auto& failure = view.state().sessionSaveError;
    return failure && view.holdsUnsaved() ? std::optional(*failure + " Quit anyway?") : std::nullopt;
}

std::optional<std::string> timecodeProblem(const ContentView& view, std::string_view text)
{
    if (!view.state().loaded)
        return std::nullopt;
    try {
        (void)parseTimecode(view.state().loaded->engine, text);
        return std::nullopt;
    } catch (const FinalCutImportError& refusal) {
        return refusal.what();
    }
}

std::optional<TimecodeAdvice> timecodeAdvice(
    const ContentView& view, const SectionDraft& section, std::string_view text)
{
    const auto& loaded = view.state().loaded;
    if (!loaded)
        return std::nullopt;
    if (const auto problem = timecodeProblem(view, text))
        return TimecodeAdvice{*problem, labelAfterSkipped(loaded->engine, text)};
    if (timecodeProblem(view, section.start) || timecodeProblem(view, section.end) ||
        parseTimecode(loaded->engine, section.start) < parseTimecode(loaded->engine, section.end))
        return std::nullopt;
    return TimecodeAdvice{"The end must be after the start.", std::nullopt};
}

std::optional<std::string> undoText(const ContentView& view, UndoStep::Side side)
{
    const auto step = view.nextStep(side);
    if (!step)
        return std::nullopt;
    return (side == UndoStep::Side::before ? "Undo " : "Redo ") + std::string(step->name);
}

std::vector<UsageRow> usageRows(const ContentView& view)
{
    return usageRows(view, view.state().cuts());
}

std::vector<UsageRow> usageRows(const ContentView& view, const std::vector<Cut>& cuts)
{
    std::vector<UsageRow> rows;
    if (cuts.empty())
        return rows;
    const LoadedDocument& loaded = *view.state().loaded;
    for (const CameraShare& share : cameraShares(loaded.imported, loaded.engine, cuts)) {
        rows.push_back(
            {share.angle.id, view.angleLabel(share.angle.id), fixed(loaded.engine.seconds(share.frames), 2) + " sec",
             fixed(share.percent, 1) + "%", share.percent, share.shots});
    }
    return rows;
}

std::set<std::string> camerasInUse(const ContentView& view)
{
    const EditSettings& settings = view.state().settings;
    const auto included = view.includedOtherCameras();
    std::set<std::string> used(included.begin(), included.end());
    used.insert(settings.mainCamera);
    if (settings.openingEnabled)
        used.insert(settings.openingCamera);
    if (settings.closingEnabled)
        used.insert(settings.closingCamera);
    for (const SectionDraft& section : settings.sections)
        used.insert(section.camera);
    return used;
}

std::string coverageLabel(const ContentView& view, const std::string& camera, bool isInUse)
{
    return view.angleLabel(camera) + std::string(isInUse ? "" : excludedNote);
}

std::vector<AudioChoice> audioChoices(const ContentView& view)
{
    std::vector<AudioChoice> choices;
    if (!view.state().loaded)
        return choices;
    const CutEngine& engine = view.state().loaded->engine;
    const std::vector<FrameRange> wholeProject = {{0, engine.length}};
    for (const ImportedAngle& angle : view.state().loaded->imported.angles) {
        const auto& ranges = engine.audioRanges(angle.id);
        if (!ranges.empty())
            choices.push_back(
                {angle.id, view.angleLabel(angle.id) + std::string(ranges == wholeProject ? "" : gapsNote)});
    }
    return choices;
}

std::map<std::string, int> frequencyPercents(const ContentView& view)
{
    const EditSettings& settings = view.state().settings;
    const auto cameras = view.includedOtherCameras();
    double total = 0;
    for (const std::string& camera : cameras)
        total += frequencyOf(settings.frequencies, camera);
    std::map<std::string, int> percents;
    for (const std::string& camera : cameras)
        percents[camera] =
            total > 0 ? static_cast<int>(std::round(frequencyOf(settings.frequencies, camera) / total * 100)) : 0;
    return percents;
}

bool frequenciesMatter(const ContentView& view)
{
    return view.includedOtherCameras().size() >= 2;
}

std::string shareLabel(const ContentView& view)
{
    const double share = view.state().settings.mainShare;
    return "Target screen time: Main " + wholeNumber(share) + "% · Other cameras combined " + wholeNumber(100 - share) +
           "%";
}

std::string secondsLabel(std::string_view word, double seconds)
{
    return std::string(word) + ": " + secondsLabel(seconds);
}

std::string secondsLabel(double seconds)
{
    return wholeNumber(seconds) + " sec";
}

std::string footageInWords(const CutEngine& engine, const std::vector<FrameRange>& ranges)
{
    const std::string footage = rangesInWords(engine, "Footage: ", ranges);
    const std::string gaps = rangesInWords(
        engine, footage.empty() ? "No footage: " : " No footage: ", uncoveredStretches(ranges, engine.length));
    return footage + gaps;
}

std::string markersInWords(const CutEngine& engine, const std::vector<ClipMarker>& markers)
{
    return listInWords("Markers: ", markers, [&engine](const ClipMarker& marker) {
        return marker.name + (marker.name.empty() ? "" : " at ") + timecodeLabel(engine, marker.frame);
    });
}

std::string usableInWords(const CutEngine& engine, const UsableRanges& usable)
{
    if (usable.wholeProject)
        return "The whole project can be cut.";
    return usable.offered.empty() ? "Nothing can be cut." : rangesInWords(engine, "Usable: ", usable.offered);
}

std::string gapsInWords(const CutEngine& engine, const std::vector<FrameRange>& gaps)
{
    return gaps.empty() ? wholeProjectCovered : rangesInWords(engine, "Gaps: ", gaps);
}

} // namespace corvane
