#pragma once

#include "workspace/window/controls/panel.h"
#include "workspace/window/controls/picker.h"

#include <QPushButton>

namespace corvane {

/// "Saved presets".
class PresetsPanel : public Panel {
    Q_OBJECT
public:
    explicit PresetsPanel(ContentView& view, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;

private:
    Picker* picker_;
    QPushButton* apply_;
    QPushButton* saveAs_;
    QPushButton* update_;
    QPushButton* delete_;
    QPushButton* startNewList_; ///< shown only if the list cannot be read
    QLabel* notice_;
};

} // namespace corvane
