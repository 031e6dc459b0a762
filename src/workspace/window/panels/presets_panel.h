#pragma once

#include "workspace/window/command_actions.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/controls/picker.h"

#include <QPushButton>

namespace corvane {

/// "Saved presets".
class PresetsPanel : public Panel {
    Q_OBJECT
public:
    PresetsPanel(ContentView& view, const CommandActions& commands, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;

private:
    QPushButton* makeButton(QAction& action);

    Picker* picker_;
    QPushButton* startNewList_; ///< there only while the list cannot be read
    QLabel* notice_;
};

} // namespace corvane
