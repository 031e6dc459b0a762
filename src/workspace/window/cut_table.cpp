#include "workspace/window/cut_table.h"

#include "workspace/window/column_widths.h"
#include "workspace/window/name_delegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <algorithm>

namespace corvane {

namespace {

constexpr QItemSelectionModel::SelectionFlags onlyRow = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;

/// Draws texts for which the model has a colour in that colour or, in a selected row where it could not be read, bold.
class ColorDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->state.testFlag(QStyle::State_Selected) && index.data(Qt::ForegroundRole).isValid())
            option->font.setBold(true);
    }
};

} // namespace

CutTable::CutTable(CutTableModel& model, QWidget* parent) : QTableView(parent), withoutEvent_(onlyRow)
{
    setModel(&model);
    arrange();
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this](const QItemSelection& added) {
        goToChosen(added);
        emit chosenChanged();
    });
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this, &CutTable::chosenChanged);
    connect(&model, &QAbstractItemModel::modelReset, this, &CutTable::chosenChanged); // which deselects in silence
}

/// Assistive technology chooses a row without going to it. Keys and the mouse say themselves which row is the current
/// one.
void CutTable::goToChosen(const QItemSelection& added)
{
    if (!atWork_ && added.size() == 1 && added.first().height() == 1)
        selectionModel()->setCurrentIndex(
            model()->index(added.first().top(), std::max(0, currentIndex().column())), QItemSelectionModel::NoUpdate);
}

void CutTable::arrange()
{
    setItemDelegateForColumn(CutTableModel::camera, new NameDelegate(this));
    setItemDelegateForColumn(CutTableModel::duration, new ColorDelegate(this));
    setAccessibleName(tr("Cuts"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    const auto columnOf = [this](CutTableModel::Column section, const char* widest) {
        constexpr int margins = 10;
        return ColumnWidths::Column{
            section, fontMetrics().horizontalAdvance(widest) + margins,
            horizontalHeader()->sectionSizeHint(section) + margins};
    };
    new ColumnWidths( // owned by the table
        *this, CutTableModel::camera,
        {columnOf(CutTableModel::start, "00:00:00:00"), columnOf(CutTableModel::duration, "00000.00")});
    constexpr int fewestRows = 3;
    horizontalHeader()->ensurePolished(); // so that its height is known before it is shown
    setMinimumHeight(
        horizontalHeader()->sizeHint().height() + fewestRows * verticalHeader()->defaultSectionSize() +
        2 * frameWidth());
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored); // it takes the remaining height
}

ChosenCuts CutTable::chosen() const
{
    ChosenCuts chosen;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            chosen.positions.push_back(static_cast<std::size_t>(row));
    }
    std::ranges::sort(chosen.positions);
    chosen.current = currentIndex().row();
    return chosen;
}

void CutTable::choose(int row, Qt::KeyboardModifiers held)
{
    const QScopedValueRollback work(atWork_, true);
    const auto cut = [this](int at) { return model()->index(at, std::max(0, currentIndex().column())); };
    if (held.testFlag(Qt::ShiftModifier) && currentIndex().isValid()) {
        const int from = startOfRange();
        selectionModel()->select(
            QItemSelection(cut(std::min(from, row)), cut(std::max(from, row))),
            QItemSelectionModel::SelectCurrent | QItemSelectionModel::Rows);
        selectionModel()->setCurrentIndex(cut(row), QItemSelectionModel::NoUpdate);
        return;
    }
    withoutEvent_ = QItemSelectionModel::NoUpdate; // the current cut first, so that it is never an old one
    setCurrentIndex(cut(row));                     // a range that Shift extends begins here
    withoutEvent_ = onlyRow;
    const bool toggles = held.testFlag(Qt::ControlModifier);
    selectionModel()->select(cut(row), toggles ? QItemSelectionModel::Toggle | QItemSelectionModel::Rows : onlyRow);
}

/// Where the chosen cuts around the current one began to be chosen: at their other end.
int CutTable::startOfRange() const
{
    const int current = currentIndex().row();
    const auto end = [this, current](int step) {
        int row = current;
        while (selectionModel()->isRowSelected(row + step))
            row += step;
        return row;
    };
    if (!selectionModel()->isRowSelected(current))
        return current;
    return end(-1) == current ? end(1) : end(1) == current ? end(-1) : current;
}

QModelIndex CutTable::moveCursor(CursorAction action, Qt::KeyboardModifiers held)
{
    switch (action) {
    case MoveLeft:
    case MovePrevious:
        return QTableView::moveCursor(MoveUp, held);
    case MoveRight:
    case MoveNext:
        return QTableView::moveCursor(MoveDown, held);
    case MoveHome:
        return model()->index(0, std::max(0, currentIndex().column()));
    case MoveEnd:
        return model()->index(model()->rowCount() - 1, std::max(0, currentIndex().column()));
    default:
        return QTableView::moveCursor(action, held);
    }
}

/// The toolkit's own would ask which keys happen to be held.
QItemSelectionModel::SelectionFlags CutTable::selectionCommand(const QModelIndex& index, const QEvent* event) const
{
    return event == nullptr ? withoutEvent_ : QTableView::selectionCommand(index, event);
}

bool CutTable::event(QEvent* event)
{
    const QScopedValueRollback work(atWork_, true);
    return QTableView::event(event);
}

bool CutTable::viewportEvent(QEvent* event)
{
    const QScopedValueRollback work(atWork_, true);
    return QTableView::viewportEvent(event);
}

void CutTable::keyPressEvent(QKeyEvent* event)
{
    const auto action = actionOf(event->key());
    if (event->matches(QKeySequence::Copy)) {
        emit copyWanted();
    } else if (action && event->modifiers() == Qt::ShiftModifier) {
        // Versions of the toolkit differ in where the range begins.
        if (const QModelIndex end = moveCursor(*action, {}); end.isValid())
            choose(end.row(), Qt::ShiftModifier);
    } else {
        QTableView::keyPressEvent(event);
    }
}

/// None for keys that do not move.
std::optional<CutTable::CursorAction> CutTable::actionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        return MoveUp;
    case Qt::Key_Right:
    case Qt::Key_Down:
        return MoveDown;
    case Qt::Key_Home:
        return MoveHome;
    case Qt::Key_End:
        return MoveEnd;
    case Qt::Key_PageUp:
        return MovePageUp;
    case Qt::Key_PageDown:
        return MovePageDown;
    default:
        return std::nullopt;
    }
}

} // namespace corvane
