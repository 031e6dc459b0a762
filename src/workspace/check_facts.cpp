#include "workspace/check_facts.h"

#include "analysis/export_forecast.h"
#include "analysis/oddities.h"
#include "engine/coverage_report.h"

#include <algorithm>
#include <utility>

namespace corvane {

void CheckedProject::refresh(const ContentView& view, std::string_view decimalSign)
{
    const bool isOther = loaded_ != view.state().loaded;
    const std::string audioBefore = std::exchange(settings_, view.state().settings).audio;
    loaded_ = view.state().loaded;
    if (!loaded_) {
        check_ = {};
        return;
    }
    const ImportedProject& project = loaded_->imported;
    const CutEngine& engine = loaded_->engine;
    check_.usable = usableRanges(project, engine, settings_);
    check_.otherAudio.clear();
    if (check_.usable && !check_.usable->wholeProject)
        check_.otherAudio = otherAudioAngles(project, engine, settings_);
    if (isOther)
        check_.oddities = oddities(project, engine);
    if (isOther || settings_.audio != audioBefore) {
        check_.refusals = announcedRefusals(project, engine, settings_.audio);
        hasFades_ = hasAudioFades(engine, settings_.audio);
    }
    check_.advice = hasFades_ ? fadeAdvice(project, engine, settings_, decimalSign) : std::vector<std::string>();
    if (isOther)
        mayHaveNotes_ =
            !checkNotes(check_).empty() || std::ranges::any_of(project.angles, [&engine](const ImportedAngle& angle) {
                return hasAudioFades(engine, angle.id);
            });
}

std::string CheckedProject::usableText() const
{
    if (!loaded_ || !check_.usable)
        return "";
    const std::string line = usableLine(loaded_->engine, settings_, *check_.usable);
    const std::string better = betterAudioLine(loaded_->imported, loaded_->engine, *check_.usable, check_.otherAudio);
    return line + (line.empty() || better.empty() ? "" : ". ") + better + (better.empty() ? "" : ".");
}

std::vector<std::string> CheckedProject::notes() const
{
    constexpr std::size_t most = 20; // in the window; the list has all
    auto notes = checkNotes(check_);
    if (notes.size() <= most)
        return notes;
    const std::size_t left = notes.size() - most;
    notes.resize(most);
    notes.push_back("And " + std::to_string(left) + " more.");
    return notes;
}

std::string projectCheckText(const ContentView& view, std::string_view decimalSign)
{
    if (!view.state().loaded)
        return "";
    const auto& [source, project, engine] = *view.state().loaded;
    const EditSettings& settings = view.state().settings;
    const ProjectCheck check = checkProject(project, engine, settings, decimalSign);
    const std::string text = checkText(project, engine, settings, check);
    return check.usable ? text : setupWarning(project, engine, settings, decimalSign).value_or("") + "\n" + text;
}

} // namespace corvane
