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
};

/// Makes the menu bar of the main window, and has the commands that are not the controller's do what they do.
void makeMenus(
    const CommandActions& commands, ContentView& view, Updater& updater, const MenuActions& actions,
    QMainWindow& window);

} // namespace corvane
