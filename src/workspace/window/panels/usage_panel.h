#pragma once

#include "workspace/window/controls/panel.h"
#include "workspace/window/usage_table.h"

#include <QTableView>

namespace corvane {

/// "Actual camera usage".
class UsagePanel : public Panel {
    Q_OBJECT
public:
    /// `marks` are those of the project that is shown.
    UsagePanel(ContentView& view, const CameraMarks& marks, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;
    /// High enough for all cameras, up to eight.
    [[nodiscard]] QSize sizeHint() const override;

private:
    UsageTableModel* model_;
    QTableView* table_;
};

} // namespace corvane
