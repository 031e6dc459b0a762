#pragma once

#include "platform/updater.h"
#include "workspace/commands.h"

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QPushButton>
#include <array>
#include <vector>

namespace corvane {

/// The commands as actions of the toolkit: one each, which menus and buttons share. They follow the controller's state.
class CommandActions : public QObject {
    Q_OBJECT
public:
    CommandActions(ContentView& view, Updater& updater, QObject* parent = nullptr);

    /// Operations of the controller are already connected. The action's data is its tooltip.
    [[nodiscard]] QAction& of(Command command) const { return *actions_[static_cast<std::size_t>(command)]; }

    void refresh();
    /// Call this when other cuts are chosen: their positions in the cut list on screen.
    void setChosenCuts(std::vector<std::size_t> positions);

private:
    ContentView& view_;
    std::array<QAction*, commandCount> actions_{};
    CorvaneUpdateState updates_;
    std::vector<std::size_t> chosenCuts_;
};

/// Gives the button the action's text, enabled state and tooltip, and lets it trigger the action.
void followAction(QPushButton& button, QAction& action);

/// Shows the tooltip of a menu entry while the pointer rests on it, even if the entry is disabled.
void showTips(QMenu& menu);

} // namespace corvane
