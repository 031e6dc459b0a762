#pragma once

#include "platform/updater.h"
#include "workspace/content_view.h"

#include <QAction>
#include <QMainWindow>
#include <QObject>
#include <functional>
#include <string>

namespace corvane {

/// The menu commands that are not operations of the controller.
struct MenuActions {
    std::function<void()> showHelp;
    std::function<void()> showAbout;
    std::function<void(const std::string& path)> reveal; ///< shows a file in its folder
};

/// The menu bar of the main window. Its commands follow the controller's state.
class Menus : public QObject {
    Q_OBJECT
public:
    Menus(ContentView& view, Updater& updater, MenuActions actions, QMainWindow& window);

    void refresh();

private:
    void makeFileMenu(QMainWindow& window);
    void makeEditMenu(QMainWindow& window);
    void makeHelpMenu(QMainWindow& window, Updater& updater);
    void copyCutList() const;

    ContentView& view_;
    MenuActions actions_;
    CorvaneUpdateState updates_;
    QAction* reopen_ = nullptr;
    QAction* export_ = nullptr;
    QAction* showLastExport_ = nullptr;
    QAction* undo_ = nullptr;
    QAction* copyCuts_ = nullptr;
    QAction* generate_ = nullptr;
    QAction* back_ = nullptr;
    QAction* forward_ = nullptr;
    QAction* checkForUpdates_ = nullptr;
};

} // namespace corvane
