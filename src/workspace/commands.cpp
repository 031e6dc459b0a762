#include "workspace/commands.h"

#include "base/text.h"
#include "workspace/captions.h"
#include "workspace/held_shots.h"

#include <algorithm>
#include <array>
#include <ranges>

namespace corvane {

namespace {

using Now = const CommandConditions&;
using Reason = std::optional<std::string>;

Reason unless(bool condition, const char* reason)
{
    return condition ? std::nullopt : Reason(reason);
}

Reason none(Now /*now*/)
{
    return std::nullopt;
}

Reason whyNoCuts(Now now)
{
    return unless(!now.view.state().cuts().empty(), "Generate an edit first.");
}

Reason whyNoChoice(Now now)
{
    const auto noCuts = whyNoCuts(now);
    return noCuts ? noCuts : unless(!now.chosenCuts.empty(), "Choose a shot in the cut list first.");
}

Reason whyNotHold(Now now)
{
    if (const auto noChoice = whyNoChoice(now))
        return noChoice;
    const WorkspaceState& state = now.view.state();
    const auto shots = shotsToHold(state.loaded->engine, state.settings, state.cuts(), now.chosenCuts);
    return unless(!shots.empty(), "Opening, closing and fixed shots are held already.");
}

Reason whyNotRelease(Now now)
{
    if (const auto noChoice = whyNoChoice(now))
        return noChoice;
    const WorkspaceState& state = now.view.state();
    const auto sections = sectionsToRelease(state.loaded->engine, state.settings, state.cuts(), now.chosenCuts);
    return unless(!sections.empty(), "Only shots that are fixed sections can be released.");
}

Reason whyNoGeneration(Now now)
{
    if (!now.view.state().loaded)
        return "Import a project first.";
    if (now.view.includedOtherCameras().empty())
        return "Include another camera.";
    return unless(!now.view.state().settings.audio.empty(), "Choose the continuous audio.");
}

Reason whyNotBack(Now now)
{
    const EditHistory& history = now.view.state().history;
    if (history.items.empty())
        return "There is no edit yet.";
    const bool isEarlier = history.has(history.index) && (now.view.state().cuts().empty() || history.index > 0);
    return unless(isEarlier, "This is the first edit.");
}

Reason whyNotForward(Now now)
{
    const EditHistory& history = now.view.state().history;
    if (history.items.empty())
        return "There is no edit yet.";
    return unless(history.has(history.index + 1), "This is the last edit.");
}

Reason whyNoStep(Now now, UndoStep::Side side, const char* nothing)
{
    const auto step = now.view.nextStep(side);
    return step ? step->whyNot : Reason(nothing);
}

Reason whyNoPreset(Now now)
{
    return unless(now.view.chosenPreset().has_value(), "Choose a preset first.");
}

constexpr std::array<CommandEntry, commandCount> table = {{
    {Command::importProject, "Import Final Cut XML…", 'i', "Ctrl+O", "", none,
     [](ContentView& view) { view.chooseProjectFile(); }},
    {Command::reopenPrevious, "Reopen Previous Project", 'r', "", "",
     [](Now now) { return unless(now.view.state().canReopen, "There is no previous project to reopen."); },
     [](ContentView& view) { view.reopenPreviousSession(); }},
    {Command::checkProject, "Check Project…", 'k', "Ctrl+K", "",
     [](Now now) { return unless(now.view.state().loaded != nullptr, "Import a project first."); }},
    {Command::exportEdit, "Export to Final Cut…", 'x', "Ctrl+E", "", whyNoCuts,
     [](ContentView& view) { view.exportRoughEdit(); }},
    {Command::showLastExport, "Show Last Export", 's', "", "",
     [](Now now) { return unless(now.view.state().lastExport.has_value(), "Nothing has been exported yet."); }},
    {Command::savePicture, "Save Picture of Edit…", 'p', "Ctrl+Shift+S", "", whyNoCuts},
    {Command::close, "Close", 'c', "Ctrl+W", "", none},
    {Command::quit, "Quit", 'q', "Ctrl+Q", "", none},
    {Command::undo, "Undo", 'u', "Ctrl+Z", "",
     [](Now now) { return whyNoStep(now, UndoStep::Side::before, "There is nothing to undo."); },
     [](ContentView& view) { view.undo(); }},
    {Command::redo, "Redo", 'r', "Ctrl+Shift+Z; Ctrl+Y", "",
     [](Now now) { return whyNoStep(now, UndoStep::Side::after, "There is nothing to redo."); },
     [](ContentView& view) { view.redo(); }},
    {Command::copyCutList, "Copy Cut List", 'c', "Ctrl+Shift+C", "", whyNoCuts},
    {Command::hold, "Hold Shots", 'h', "Ctrl+H",
     "Keep the chosen shots as fixed sections, and draw the rest of the edit anew", whyNotHold},
    {Command::release, "Release Shots", 'l', "Ctrl+Shift+H",
     "Remove the fixed sections of the chosen shots, and draw the edit anew", whyNotRelease},
    {Command::generate, "Generate rough edit", 'g', "Ctrl+G", "", whyNoGeneration,
     [](ContentView& view) { view.generateRoughEdit(); }},
    {Command::tryRules, "Try these rules", 0, "Ctrl+T",
     "Generate many edits by these rules and show what they have in common", whyNoGeneration},
    {Command::back, "Back", 'b', "Ctrl+[", "Return to the previous rough edit and its settings", whyNotBack,
     [](ContentView& view) { view.stepBack(); }},
    {Command::forward, "Forward", 'w', "Ctrl+]", "Restore the next rough edit and its settings", whyNotForward,
     [](ContentView& view) { view.stepForward(); }},
    {Command::showEdits, "All Edits…", 'a', "Ctrl+L", "Compare the edits made so far and go to any of them",
     [](Now now) { return unless(!now.view.state().history.items.empty(), "There is no edit yet."); }},
    {Command::showHelp, "Corvane Help", 'h', "F1; Ctrl+?", "", none},
    {Command::showAbout, "About Corvane", 'a', "", "", none},
    {Command::checkForUpdates, "Check for Updates…", 'u', "", "",
     [](Now now) { return unless(now.canCheckForUpdates, "Corvane is updated together with your other programs."); }},
    {Command::applyPreset, "Apply", 'a', "", "", whyNoPreset,
     [](ContentView& view) {
         if (const auto preset = view.chosenPreset())
             view.applyPreset(*preset);
     }},
    {Command::savePresetAs, "Save as…", 'v', "", "", whyNoGeneration,
     [](ContentView& view) { view.beginSavePreset(); }},
    {Command::updatePreset, "Update", 'u', "", "",
     [](Now now) { return now.view.chosenPreset() ? whyNoGeneration(now) : whyNoPreset(now); },
     [](ContentView& view) { view.savePreset(ContentView::PresetSave::update); }},
    {Command::deletePreset, "Delete", 'l', "", "", whyNoPreset, [](ContentView& view) { view.deletePreset(); }},
    {Command::savePreset, "Save", 's', "", "",
     [](Now now) { return unless(!trimmed(now.view.state().presetName).empty(), "Type a name first."); },
     [](ContentView& view) { view.savePreset(ContentView::PresetSave::asNew); }},
}};
// Entries are found by position.
static_assert(
    std::ranges::equal(table, std::views::iota(std::size_t{0}, table.size()), {}, [](const CommandEntry& entry) {
        return static_cast<std::size_t>(entry.command);
    }));

} // namespace

const CommandEntry& entry(Command command)
{
    return table.at(static_cast<std::size_t>(command));
}

std::optional<std::string> whyNot(Command command, const CommandConditions& now)
{
    return entry(command).whyNot(now);
}

std::string commandText(Command command, const ContentView& view)
{
    if (command == Command::generate)
        return primaryButtonText(view);
    if (command == Command::undo || command == Command::redo) {
        const auto side = command == Command::undo ? UndoStep::Side::before : UndoStep::Side::after;
        return undoText(view, side).value_or(std::string(entry(command).text));
    }
    return std::string(entry(command).text);
}

std::string commandTip(Command command, const CommandConditions& now)
{
    const auto reason = whyNot(command, now);
    std::string tip(entry(command).help);
    if (command == Command::generate && !reason)
        tip = replacedEdits(now.view).value_or("");
    if (reason)
        tip += (tip.empty() ? "" : "\n") + *reason;
    return tip;
}

} // namespace corvane
