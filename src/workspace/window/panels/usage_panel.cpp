#include "workspace/window/panels/usage_panel.h"

#include "workspace/window/column_widths.h"
#include "workspace/window/name_delegate.h"
#include "workspace/window/shown_text.h"

#include <QHeaderView>
#include <algorithm>

namespace corvane {

UsagePanel::UsagePanel(ContentView& view, const CameraMarks& marks, QWidget* parent)
    : Panel(tr("Actual camera usage"), view, parent),
      model_(new UsageTableModel(view, marks, this)),
      table_(new QTableView(this))
{
    table_->setModel(model_);
    table_->setItemDelegateForColumn(UsageTableModel::camera, new NameDelegate(table_));
    table_->setItemDelegateForColumn(UsageTableModel::share, new ShareBarDelegate(table_));
    table_->setAccessibleName(tr("Actual camera usage"));
    arrangeForReading(*table_);
    const auto wide = [this](const char* text) { return table_->fontMetrics().horizontalAdvance(text) + 10; };
    const int number = wide("100.0%");
    new ColumnWidths( // owned by the table
        *table_, UsageTableModel::camera,
        {{UsageTableModel::screenTime, wide("00000.00 sec"), wide("00000.00 sec") + 6},
         {UsageTableModel::share, number + 30, number + 76}, // the rest is for the bar
         {UsageTableModel::shots, wide("Shots"), wide("Shots 0")}});
    table_->setMinimumHeight(52);
    column().addWidget(table_, 1);
}

QSize UsagePanel::sizeHint() const
{
    constexpr int most = 8;
    constexpr int fewest = 2;
    const int rows = std::clamp(static_cast<int>(view_.videoAngles().size()), fewest, most);
    const int wanted = table_->horizontalHeader()->sizeHint().height() + 2 * table_->frameWidth() +
                       rows * table_->verticalHeader()->defaultSectionSize();
    const QSize usual = Panel::sizeHint();
    return {usual.width(), usual.height() - table_->sizeHint().height() + wanted};
}

void UsagePanel::refresh(const Changes& changes)
{
    if (has(changes, Changed::loaded) || has(changes, Changed::cuts))
        model_->show();
    if (has(changes, Changed::loaded))
        updateGeometry();
}

} // namespace corvane
