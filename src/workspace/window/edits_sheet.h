#pragma once

#include "workspace/content_view.h"
#include "workspace/window/edits_table.h"
#include "workspace/window/side_sheet.h"

#include <QLabel>
#include <QTableView>

namespace corvane {

/// All edits of the history. Arrow keys only move the mark; Return or a click shows an edit in the main window.
class EditsSheet : public SideSheet {
    Q_OBJECT
public:
    /// `marks` are those of the project that is shown.
    EditsSheet(ContentView& view, const CameraMarks& marks, QWidget* parent);

    /// Opens with the current edit marked.
    void showList();
    /// Follows the history while the sheet is open.
    void refresh(const Changes& changes);

private:
    void arrangeTable(const CameraMarks& marks);
    void showEdits();
    void markCurrent();
    void restore(const QModelIndex& line);

    ContentView& view_;
    EditsTableModel* model_;
    QTableView* table_;
    QLabel* next_; ///< what the next new edit replaces
};

} // namespace corvane
