#pragma once

#include "platform/updater.h"
#include "workspace/commands.h"

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QPushButton>
#include <array>

namespace corvane {

/// The commands as the toolkit has them: one action each, which menus and buttons share. They follow the state.
class CommandActions : public QObject {
    Q_OBJECT
public:
    CommandActions(ContentView& view, Updater& updater, QObject* parent = nullptr);

    /// What the controller does is connected already. The action's data is its tip.
    [[nodiscard]] QAction& of(Command command) const { return *actions_[static_cast<std::size_t>(command)]; }

    void refresh();

private:
    ContentView& view_;
    std::array<QAction*, static_cast<std::size_t>(Command::count)> actions_{};
    CorvaneUpdateState updates_;
};

/// The button has the text, the state and the tip of the action, and triggers it.
void followAction(QPushButton& button, QAction& action);

/// Where the pointer rests on an entry of the menu, its tip is shown, also while the entry cannot be chosen.
void showTips(QMenu& menu);

} // namespace corvane
