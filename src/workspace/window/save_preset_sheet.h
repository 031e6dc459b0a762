#pragma once

#include "workspace/content_view.h"

#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

namespace corvane {

/// Asks for the name of a new preset. Open while the controller's showSavePreset is true.
class SavePresetSheet : public QDialog {
    Q_OBJECT
public:
    /// `save` is the command of the sheet.
    SavePresetSheet(ContentView& view, QAction& save, QWidget* parent);

    /// Shows what changed. If another project is loaded, the sheet stays open with the typed name.
    void refresh();
    void reject() override;

private:
    ContentView& view_;
    QLineEdit* name_;
    QPushButton* save_;
};

} // namespace corvane
