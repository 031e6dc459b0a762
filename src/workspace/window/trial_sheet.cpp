#include "workspace/window/trial_sheet.h"

#include "workspace/commands.h"
#include "workspace/window/column_widths.h"
#include "workspace/window/command_actions.h"
#include "workspace/window/controls/kept_lines.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/name_delegate.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/theme.h"

#include <QHeaderView>
#include <utility>

namespace corvane {

TrialSheet::TrialSheet(const ContentView& view, const CameraMarks& marks, QAction& again, QWidget* parent)
    : SideSheet(tr("What these rules give"), Place::edit, "balance-and-pacing", parent),
      view_(view),
      summary_(helpLabel({}, this)),
      model_(new CameraTableModel(marks, {tr("Camera"), tr("Target"), tr("Median"), tr("Range")}, this)),
      table_(new QTableView(this))
{
    auto* place = new KeptLines(3, this);
    place->setMinimumHeight(place->maximumHeight());
    place->add(*summary_);
    column().addWidget(place);
    arrangeTable();
    column().addWidget(table_, 1);
    auto* button = new QPushButton(this);
    followAction(*button, again);
    addButtons({button});
    setFirstSize(70, 38); // sixteen cameras
}

void TrialSheet::arrangeTable()
{
    table_->setModel(model_);
    table_->setItemDelegateForColumn(CameraTableModel::camera, new NameDelegate(table_));
    table_->setAccessibleName(tr("Share in the tries"));
    arrangeForReading(*table_);
    enum { target = CameraTableModel::firstFigure, median, range };
    const auto wide = [this](const char* text) { return table_->fontMetrics().horizontalAdvance(text) + 12; };
    new ColumnWidths( // which the table owns
        *table_, CameraTableModel::camera,
        {{target, wide("Target"), wide("Target") + 8},
         {median, wide("Median"), wide("Median") + 8},
         {range, wide("00.0% to 00.0%"), wide("00.0% to 00.0%") + 8}});
}

void TrialSheet::tryRules()
{
    const auto& loaded = view_.state().loaded;
    if (!loaded)
        return;
    show(corvane::tryRules(loaded->imported, loaded->engine, view_.state().settings));
    present(*table_);
}

void TrialSheet::show(const RuleTrial& trial)
{
    showMessage(*summary_, trialSummary(trial, theme::decimalSign()));
    std::vector<CameraTableModel::Row> rows;
    for (const RuleTrial::Camera& row : trial.cameras)
        rows.push_back(
            {row.id,
             view_.angleLabel(row.id),
             {qt(targetText(row)), qt(medianText(row.share)), qt(rangeText(row.share))}});
    model_->show(std::move(rows));
}

void TrialSheet::refresh(const Changes& changes)
{
    const auto has = [&changes](Changed what) { return changes.test(static_cast<std::size_t>(what)); };
    if (!has(Changed::settings) && !has(Changed::loaded))
        return;
    const auto reason = whyNot(Command::tryRules, {view_});
    showMessage(*summary_, reason.value_or("The settings have changed. Try these rules again to see what they give."));
    model_->show({});
}

} // namespace corvane
