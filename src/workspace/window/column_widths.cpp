#include "workspace/window/column_widths.h"

#include "workspace/window/shown_text.h"

#include <QEvent>
#include <QHeaderView>
#include <QStyle>
#include <QStyleOptionHeader>
#include <algorithm>

namespace corvane {

namespace {

constexpr int leastForNames = 80;

/// Elides the titles of narrow columns, which the toolkit's own header does not.
class ElidedHeader : public QHeaderView {
public:
    explicit ElidedHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override
    {
        QHeaderView::initStyleOptionForIndex(option, section);
        constexpr int margins = 8;
        option->text = fontMetrics().elidedText(option->text, Qt::ElideRight, sectionSize(section) - margins);
    }
};

} // namespace

void arrangeForReading(QTableView& table)
{
    copyAsSpoken(table);
    table.setSelectionMode(QAbstractItemView::NoSelection);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setTabKeyNavigation(false);
    table.setWordWrap(false);
    table.setShowGrid(false);
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(std::max(20, table.fontMetrics().height() + 4));
}

ColumnWidths::ColumnWidths(QTableView& table, int names, std::vector<Column> others)
    : QObject(&table), table_(table), names_(names), others_(std::move(others))
{
    table.setHorizontalHeader(new ElidedHeader(&table));
    table.horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.viewport()->installEventFilter(this);
    int least = leastForNames;
    for (const Column& column : others_)
        least += column.least;
    const int scrollBar = table.style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 * table.frameWidth();
    table.setMinimumWidth(least + scrollBar);
    connect(table.model(), &QAbstractItemModel::modelReset, this, [this] {
        measureNames();
        share();
    });
}

bool ColumnWidths::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        share();
    return false;
}

void ColumnWidths::measureNames()
{
    constexpr int rows = 200;         // enough for a long list: by then every name has occurred
    constexpr int besideTheText = 40; // a chip and the margins
    neededForNames_ = 0;
    for (int row = 0; row < std::min(rows, table_.model()->rowCount()); ++row) {
        const QString name = table_.model()->index(row, names_).data().toString();
        neededForNames_ = std::max(neededForNames_, table_.fontMetrics().horizontalAdvance(name) + besideTheText);
    }
}

void ColumnWidths::share()
{
    int least = 0;
    int wishes = 0;
    for (const Column& column : others_) {
        least += column.least;
        wishes += column.usual - column.least;
    }
    const int width = table_.viewport()->width();
    const int spare = std::clamp(width - least - neededForNames_, 0, wishes);
    int left = width;
    for (const Column& column : others_) {
        const int granted = wishes > 0 ? (column.usual - column.least) * spare / wishes : 0;
        table_.setColumnWidth(column.section, column.least + granted);
        left -= column.least + granted;
    }
    table_.setColumnWidth(names_, std::max(left, table_.horizontalHeader()->minimumSectionSize()));
}

} // namespace corvane
