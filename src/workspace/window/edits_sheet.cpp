#include "workspace/window/edits_sheet.h"

#include "workspace/captions.h"
#include "workspace/edit_facts.h"
#include "workspace/window/column_widths.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"

#include <QHeaderView>
#include <algorithm>

namespace corvane {

namespace {

/// Home and End go to the first and the last line, as in a list.
class LinesView : public QTableView {
public:
    using QTableView::QTableView;

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override
    {
        const bool toAnEnd = action == MoveHome || action == MoveEnd;
        return QTableView::moveCursor(action, toAnEnd ? modifiers | Qt::ControlModifier : modifiers);
    }
};

} // namespace

EditsSheet::EditsSheet(ContentView& view, const CameraMarks& marks, QWidget* parent)
    : SideSheet(tr("All edits"), Place::settings, "shuffle-back-forward", parent),
      view_(view),
      model_(new EditsTableModel(view, this)),
      table_(new LinesView(this)),
      next_(helpLabel({}, this))
{
    arrangeTable(marks);
    column().addWidget(helpLabel(tr("Return or a click shows an edit and its settings in the window."), this));
    column().addWidget(table_, 1);
    column().addWidget(next_);
    addButtons({});
    setFirstSize(100, 28);
    connect(table_, &QTableView::clicked, this, &EditsSheet::restore);
    connect(table_, &QTableView::activated, this, &EditsSheet::restore);
    connect(this, &QDialog::finished, model_, &EditsTableModel::clear);
}

void EditsSheet::arrangeTable(const CameraMarks& marks)
{
    table_->setModel(model_);
    table_->setItemDelegateForColumn(EditsTableModel::strip, new EditStripDelegate(view_, *model_, marks, table_));
    table_->setAccessibleName(tr("All edits"));
    arrangeForReading(*table_);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setAlternatingRowColors(true);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 10); // room for the strip
    const auto columnOf = [this](EditsTableModel::Column section, const char* widest) {
        constexpr int margins = 12;
        const int cells = table_->fontMetrics().horizontalAdvance(widest) + margins;
        return ColumnWidths::Column{
            section, cells, std::max(cells, table_->horizontalHeader()->sectionSizeHint(section) + margins)};
    };
    new ColumnWidths( // owned by the table
        *table_, EditsTableModel::strip,
        {columnOf(EditsTableModel::number, "Edit 8888"), columnOf(EditsTableModel::made, "8888-88-88 88:88:88"),
         columnOf(EditsTableModel::cuts, "88888"), columnOf(EditsTableModel::mainShare, "100.0%"),
         columnOf(EditsTableModel::shortestShot, "888.888 sec")});
}

void EditsSheet::showList()
{
    showEdits();
    markCurrent();
    present(*table_);
}

void EditsSheet::refresh(const Changes& changes)
{
    const auto has = [&changes](Changed what) { return changes.test(static_cast<std::size_t>(what)); };
    if (!isVisible() || !(has(Changed::loaded) || has(Changed::history) || has(Changed::cuts)))
        return;
    showEdits();
    if (has(Changed::history))
        markCurrent();
}

void EditsSheet::showEdits()
{
    model_->show();
    showMessage(*next_, nextEditText(view_));
}

void EditsSheet::markCurrent()
{
    const QModelIndex current = model_->index(static_cast<int>(view_.state().history.index), EditsTableModel::number);
    table_->setCurrentIndex(current);
    table_->scrollTo(current);
}

/// Once, although a double click and a click that activates arrive here several times.
void EditsSheet::restore(const QModelIndex& line)
{
    if (!isOnScreen(view_, line.row()))
        view_.restoreRevision(line.row());
}

} // namespace corvane
