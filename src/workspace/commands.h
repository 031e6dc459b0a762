#pragma once

#include "workspace/content_view.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The window's commands: their texts, their shortcuts, and the reason why a command cannot run at the moment. Menus
/// and buttons are built from them.
namespace corvane {

enum class Command {
    importProject,
    reopenPrevious,
    checkProject,
    exportEdit,
    showLastExport,
    savePicture,
    close,
    quit,
    undo,
    redo,
    copyCutList,
    hold,
    release,
    generate,
    tryRules,
    back,
    forward,
    showEdits,
    showHelp,
    showAbout,
    checkForUpdates,
    applyPreset,
    savePresetAs,
    updatePreset,
    deletePreset,
    savePreset, ///< in the save sheet
    count
};
constexpr auto commandCount = static_cast<std::size_t>(Command::count); ///< of the commands before `count`

/// The conditions that decide whether commands can run.
struct CommandConditions {
    const ContentView& view;
    bool canCheckForUpdates = false;
    std::vector<std::size_t> chosenCuts = {}; ///< positions in the cut list on screen
};

struct CommandEntry {
    Command command;
    std::string_view text;
    char key = 0;               ///< the letter of the text that chooses it, in either case; 0 for none
    std::string_view shortcuts; ///< such as "Ctrl+O", separated by "; "
    std::string_view help;      ///< what it does, if its text does not say enough
    /// Why it cannot run; none if it can.
    std::optional<std::string> (*whyNot)(const CommandConditions& now);
    /// The controller's operation; null for commands of the window itself.
    void (*run)(ContentView& view) = nullptr;
};
[[nodiscard]] const CommandEntry& entry(Command command);

/// Why the command cannot run; none if it can.
[[nodiscard]] std::optional<std::string> whyNot(Command command, const CommandConditions& now);
/// What is written on it now: "Generate rough edit", or "Shuffle rough edit" if there is a cut list.
[[nodiscard]] std::string commandText(Command command, const ContentView& view);
/// Its tooltip: what it does and, on a line of its own, why it cannot run.
[[nodiscard]] std::string commandTip(Command command, const CommandConditions& now);

} // namespace corvane
