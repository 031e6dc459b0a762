#include "workspace/window/menus.h"

#include "workspace/shot_facts.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenuBar>
#include <initializer_list>
#include <optional>

namespace corvane {

namespace {

/// Adds a menu with these commands; none stands for a separator.
void addMenu(
    const QString& title, std::initializer_list<std::optional<Command>> entries, const CommandActions& commands,
    QMainWindow& window)
{
    QMenu& menu = *window.menuBar()->addMenu(title);
    for (const auto& command : entries) {
        if (command)
            menu.addAction(&commands.of(*command));
        else
            menu.addSeparator();
    }
    showTips(menu);
}

} // namespace

void makeMenus(
    const CommandActions& commands, ContentView& view, Updater& updater, const MenuActions& actions,
    QMainWindow& window)
{
    using enum Command;
    constexpr auto line = std::nullopt;
    addMenu(
        QMainWindow::tr("&File"),
        {importProject, reopenPrevious, Command::checkProject, line, exportEdit, showLastExport, savePicture, line,
         close, quit},
        commands, window);
    addMenu(
        QMainWindow::tr("&Edit"),
        {undo, redo, line, copyCutList, line, hold, release, line, generate, Command::tryRules, back, forward,
         Command::showEdits},
        commands, window);
    addMenu(QMainWindow::tr("&Help"), {showHelp, line, showAbout, checkForUpdates}, commands, window);
    commands.of(quit).setMenuRole(QAction::QuitRole);
    commands.of(showAbout).setMenuRole(QAction::AboutRole);
    commands.of(checkForUpdates).setMenuRole(QAction::ApplicationSpecificRole);

    const auto onTriggered = [&](Command command, const std::function<void()>& work) {
        QObject::connect(&commands.of(command), &QAction::triggered, &window, work);
    };
    onTriggered(showLastExport, [&view, reveal = actions.reveal] {
        if (const auto& path = view.state().lastExport)
            reveal(*path);
    });
    onTriggered(
        copyCutList, [&view] { QGuiApplication::clipboard()->setText(qt(cutListText(view, theme::decimalSign()))); });
    onTriggered(savePicture, [&view] { view.savePicture(theme::decimalSign()); });
    onTriggered(Command::checkProject, actions.checkProject);
    onTriggered(Command::tryRules, actions.tryRules);
    onTriggered(Command::showEdits, actions.showEdits);
    onTriggered(close, [&window] { window.close(); });
    onTriggered(quit, [&window] { window.close(); });
    onTriggered(showHelp, actions.showHelp);
    onTriggered(showAbout, actions.showAbout);
    onTriggered(checkForUpdates, [&updater] { updater.checkForUpdates(); });
}

} // namespace corvane
