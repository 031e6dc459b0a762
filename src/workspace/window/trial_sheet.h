#pragma once

#include "analysis/rule_trial.h"
#include "workspace/content_view.h"
#include "workspace/window/camera_table.h"
#include "workspace/window/side_sheet.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

namespace corvane {

/// What many edits by the rules on screen have in common.
class TrialSheet : public SideSheet {
    Q_OBJECT
public:
    /// `marks` are those of the project that is shown; `again` tries the rules once more.
    TrialSheet(const ContentView& view, const CameraMarks& marks, QAction& again, QWidget* parent);

    /// Generates edits, and opens with what they have in common.
    void tryRules();
    /// Empties the sheet when its figures are those of other rules.
    void refresh(const Changes& changes);

private:
    void arrangeTable();
    void show(const RuleTrial& trial);

    const ContentView& view_;
    QLabel* summary_;
    CameraTableModel* model_;
    QTableView* table_;
};

} // namespace corvane
