#include "workspace/shot_facts.h"

#include "base/numbers.h"
#include "base/text.h"
#include "engine/generation_inputs.h"
#include "engine/validation.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <iterator>

namespace corvane {

namespace {

std::string cutLine(const ContentView& view, const Cut& cut, std::string_view decimalSign)
{
    return startLabel(view, cut) + '\t' + withVisibleControls(view.angleLabel(cut.angle)) + '\t' +
           durationLabel(view, cut, decimalSign) + '\n';
}

} // namespace

EditMarks editMarks(const ContentView& view)
{
    const SharedRevision& revision = view.state().preview;
    return revision && view.state().loaded ? editMarks(view.state().loaded->engine, revision->settings) : EditMarks();
}

EditReasons::EditReasons(const ContentView& view) : loaded_(view.state().loaded), revision_(view.state().preview)
{
    if (loaded_ && revision_)
        reasons_ = std::make_shared<const ShotReasons>(
            loaded_->imported, loaded_->engine, revision_->settings, revision_->cuts);
}

std::string EditReasons::begins(std::size_t position) const
{
    return reasons_ ? reasons_->begins(position) : "";
}

std::string EditReasons::ends(std::size_t position) const
{
    return reasons_ ? reasons_->ends(position) : "";
}

std::string EditReasons::line(std::size_t position) const
{
    const std::string begin = begins(position);
    const std::string end = ends(position);
    return begin + (begin.empty() || end.empty() ? "" : " ") + end;
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
        // Sections do not overlap each other, so the last one that starts before the cut ends is the one that may.
        const auto after = marks.sectionsByStart.lower_bound(cut.start + cut.duration);
        return (marks.opening && overlaps(marks.opening->start, marks.opening->end)) ||
               (marks.closing && overlaps(marks.closing->start, marks.closing->end)) ||
               (after != marks.sectionsByStart.begin() && marks.sections[std::prev(after)->second].end > cut.start);
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
    for (const Cut& cut : view.state().cuts())
        text += cutLine(view, cut, decimalSign);
    text += "\nWhy each shot begins on its camera and where it ends\n";
    const EditReasons reasons(view);
    for (std::size_t i = 0; i < view.state().cuts().size(); ++i)
        text += startLabel(view, view.state().cuts()[i]) + '\t' + withVisibleControls(reasons.line(i)) + '\n';
    return text;
}

std::string cutLines(const ContentView& view, const std::vector<std::size_t>& positions, std::string_view decimalSign)
{
    std::string lines;
    for (const std::size_t position : positions)
        lines += cutLine(view, view.state().cuts()[position], decimalSign);
    return lines;
}

} // namespace corvane
