#include "workspace/window/command_actions.h"

#include "workspace/window/qt_text.h"
#include "workspace/window/tooltips.h"

#include <QHelpEvent>
#include <utility>

namespace corvane {

namespace {

/// The text with the mnemonic marked by "&".
QString withKey(const std::string& text, char key)
{
    QString marked = qt(text);
    return key == 0 ? marked : marked.insert(marked.indexOf(key, 0, Qt::CaseInsensitive), '&');
}

class MenuTips : public QObject {
public:
    explicit MenuTips(QMenu& menu) : QObject(&menu), menu_(menu) { menu.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        const auto* help = event->type() == QEvent::ToolTip ? dynamic_cast<QHelpEvent*>(event) : nullptr;
        if (help == nullptr)
            return false;
        const QAction* entry = menu_.actionAt(help->pos());
        showTip(help->globalPos(), entry == nullptr ? QString() : entry->data().toString(), menu_);
        return true;
    }

private:
    QMenu& menu_;
};

} // namespace

CommandActions::CommandActions(ContentView& view, Updater& updater, QObject* parent)
    : QObject(parent), view_(view), updates_(updater, [this] { refresh(); })
{
    for (std::size_t number = 0; number < actions_.size(); ++number) {
        const CommandEntry& command = entry(static_cast<Command>(number));
        auto* action = new QAction(this);
        action->setShortcuts(QKeySequence::listFromString(qt(command.shortcuts)));
        if (command.run != nullptr)
            connect(action, &QAction::triggered, this, [this, run = command.run] { run(view_); });
        actions_.at(number) = action;
    }
    connect(&of(Command::hold), &QAction::triggered, this, [this] { view_.hold(chosenCuts_); });
    connect(&of(Command::release), &QAction::triggered, this, [this] { view_.release(chosenCuts_); });
    refresh();
}

void CommandActions::setChosenCuts(std::vector<std::size_t> positions)
{
    chosenCuts_ = std::move(positions);
    refresh();
}

void CommandActions::refresh()
{
    const CommandConditions now = {view_, updates_.canCheckForUpdates, chosenCuts_};
    for (std::size_t number = 0; number < actions_.size(); ++number) {
        const auto command = static_cast<Command>(number);
        actions_.at(number)->setText(withKey(commandText(command, view_), entry(command).key));
        actions_.at(number)->setData(qt(commandTip(command, now)));
        actions_.at(number)->setEnabled(!whyNot(command, now));
    }
}

void followAction(QPushButton& button, QAction& action)
{
    const auto show = [&button, &action] {
        if (button.text() != action.text())
            button.setText(action.text());
        button.setEnabled(action.isEnabled());
        setTip(button, action.data().toString());
    };
    QObject::connect(&action, &QAction::changed, &button, show);
    QObject::connect(&button, &QPushButton::clicked, &action, &QAction::trigger);
    show();
}

void showTips(QMenu& menu)
{
    new MenuTips(menu);
}

} // namespace corvane
