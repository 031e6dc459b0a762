#include "workspace/shot_facts.h"

#include "base/numbers.h"
#include "base/text.h"
#include "engine/generation_inputs.h"
#include "engine/validation.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <algorithm>

namespace corvane {

EditMarks editMarks(const ContentView& view)
{
    EditMarks marks;
    const SharedRevision& revision = view.state().preview;
    if (!revision || !view.state().loaded)
        return marks;
    const CutEngine& engine = view.state().loaded->engine;
    const EditSettings& settings = revision->settings;
    if (settings.openingEnabled)
        marks.opening = FrameRange{0, std::min(bookendLength(engine, settings.openingSeconds), engine.length)};
    if (settings.closingEnabled) {
        const Frames frames = std::min(bookendLength(engine, settings.closingSeconds), engine.length);
        marks.closing = FrameRange{engine.length - frames, engine.length};
    }
    try {
        marks.sections = fixedSections(engine, settings.sections);
    } catch (const FinalCutImportError&) {
        marks.sections.clear(); // a stored session may contain sections that were never validated
    }
    return marks;
}

std::optional<std::string> shotEndReason(const ContentView& view, const EditMarks& marks, std::size_t position)
{
    const Cut& cut = view.state().cuts()[position];
    const CutEngine& engine = view.state().loaded->engine;
    const Frames end = cut.start + cut.duration;
    if (end == engine.length)
        return "Ends with the project.";
    if (marks.opening && marks.opening->end == end)
        return "The opening shot ends.";
    for (const FixedCameraSection& section : marks.sections) {
        if (section.end == end && section.angle == cut.angle)
            return "The fixed section ends.";
    }
    for (const FixedCameraSection& section : marks.sections) {
        if (section.start == end)
            return "A fixed section begins.";
    }
    if (marks.closing && marks.closing->start == end)
        return "The closing shot begins.";
    const auto& ranges = engine.videoRanges(cut.angle);
    if (std::ranges::find(ranges, end, &FrameRange::end) != ranges.end())
        return "The camera's footage ends.";
    return std::nullopt;
}

std::vector<std::size_t> shortShots(const ContentView& view, const EditMarks& marks)
{
    std::vector<std::size_t> positions;
    if (view.state().cuts().empty())
        return positions;
    const CutEngine& engine = view.state().loaded->engine;
    const EditSettings& settings = view.state().preview->settings;
    const auto wasAskedFor = [&marks](const Cut& cut) {
        const auto overlaps = [&cut](Frames start, Frames end) {
            return cut.start < end && cut.start + cut.duration > start;
        };
        return (marks.opening && overlaps(marks.opening->start, marks.opening->end)) ||
               (marks.closing && overlaps(marks.closing->start, marks.closing->end)) ||
               std::ranges::any_of(marks.sections, [&overlaps](const FixedCameraSection& section) {
                   return overlaps(section.start, section.end);
               });
    };
    for (std::size_t i = 0; i < view.state().cuts().size(); ++i) {
        const Cut& cut = view.state().cuts()[i];
        const double minimum = cut.angle == settings.mainCamera ? settings.mainMinimum : settings.otherMinimum;
        if (static_cast<double>(cut.duration) < engine.frames(minimum) && !wasAskedFor(cut))
            positions.push_back(i);
    }
    return positions;
}

std::string shortShotsText(std::size_t count)
{
    if (count == 0)
        return "";
    return count == 1 ? "1 shot is shorter than your minimum"
                      : std::to_string(count) + " shots are shorter than your minimum";
}

std::size_t cutAt(const std::vector<Cut>& cuts, Frames frame)
{
    const auto after = std::ranges::upper_bound(cuts, frame, {}, &Cut::start);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, after - cuts.begin() - 1));
}

std::string startLabel(const ContentView& view, const Cut& cut)
{
    return timecodeLabel(view.state().loaded->engine, cut.start);
}

std::string durationLabel(const ContentView& view, const Cut& cut, std::string_view decimalSign)
{
    return shortNumber(view.state().loaded->engine.seconds(cut.duration), decimalSign);
}

std::string cutListText(const ContentView& view, std::string_view decimalSign)
{
    if (view.state().cuts().empty())
        return "";
    std::string text = "Start (Timecode)\tCamera\tDuration (seconds)\n";
    for (const Cut& cut : view.state().cuts()) {
        text += startLabel(view, cut) + '\t' + withVisibleControls(view.angleLabel(cut.angle)) + '\t' +
                durationLabel(view, cut, decimalSign) + '\n';
    }
    return text;
}

} // namespace corvane
