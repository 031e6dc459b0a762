#include "analysis/project_check.h"

#include "analysis/export_forecast.h"
#include "analysis/oddities.h"

namespace corvane {

namespace {

/// What is said first of a project that can be cut from start to end; empty for any other.
std::string wholeProjectText(const ProjectCheck& check)
{
    if (!check.usable || !check.usable->wholeProject)
        return "";
    return check.refusals.empty()
               ? "The whole project can be cut, and nothing in its document will be refused by an export.\n"
               : "The whole project can be cut.\n";
}

} // namespace

ProjectCheck checkProject(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, std::string_view decimalSign)
{
    ProjectCheck check;
    check.usable = usableRanges(project, engine, settings);
    if (check.usable && !check.usable->wholeProject)
        check.otherAudio = otherAudioAngles(project, engine, settings);
    check.refusals = announcedRefusals(project, engine, settings.audio);
    check.advice = fadeAdvice(project, engine, settings, decimalSign);
    check.oddities = oddities(project, engine);
    return check;
}

std::vector<std::string> checkNotes(const ProjectCheck& check)
{
    std::vector<std::string> notes = check.refusals;
    notes.insert(notes.end(), check.advice.begin(), check.advice.end());
    notes.insert(notes.end(), check.oddities.begin(), check.oddities.end());
    return notes;
}

std::string checkText(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, const ProjectCheck& check)
{
    std::string text = wholeProjectText(check);
    if (check.usable)
        text += usableList(project, engine, settings, *check.usable, check.otherAudio);
    const auto notes = checkNotes(check);
    if (!text.empty() && !notes.empty())
        text += "\n";
    for (const std::string& note : notes)
        text += note + "\n";
    return text;
}

} // namespace corvane
