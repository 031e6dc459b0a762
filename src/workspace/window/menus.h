#pragma once

#include "platform/updater.h"
#include "workspace/content_view.h"
#include "workspace/window/command_actions.h"

#include <QMainWindow>
#include <functional>
#include <string>

namespace corvane {

/// The menu commands that are not operations of the controller.
struct MenuActions {
    std::function<void()> showHelp;
    std::function<void()> showAbout;
    std::function<void(const std::string& path)> reveal; ///< shows a file in its folder
    std::function<void()> checkProject;
    std::function<void()> tryRules;
    std::function<void()> showEdits;
};

/// Builds the main window's menu bar, and connects the commands that are not operations of the controller.
void makeMenus(
    const CommandActions& commands, ContentView& view, Updater& updater, const MenuActions& actions,
    QMainWindow& window);

} // namespace corvane
