#include "workspace/window/panels/pacing_panel.h"

#include "workspace/captions.h"
#include "workspace/window/column_widths.h"
#include "workspace/window/controls/into_view.h"
#include "workspace/window/controls/kept_lines.h"
#include "workspace/window/name_delegate.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/theme.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QSignalBlocker>
#include <algorithm>

namespace corvane {

PacingPanel::PacingPanel(ContentView& view, const CommandActions& commands, QWidget* parent)
    : Panel(tr("Camera balance and pacing"), view, parent),
      shareLabel_(new QLabel(this)),
      share_(new StepSlider(stepsWithin(limits::mainShare, 5), this)),
      double_(new QCheckBox(tr("Randomly &double main camera holds"), this)),
      try_(new QPushButton(this)),
      summary_(helpLabel({}, this)),
      model_(new TrialTableModel(view, this)),
      table_(new QTableView(this))
{
    shareLabel_->setWordWrap(true);
    shareLabel_->setBuddy(share_);
    column().addWidget(shareLabel_);
    column().addWidget(share_);
    addBounds(tr("Main camera"), &EditSettings::mainMinimum, &EditSettings::mainMaximum);
    addBounds(tr("Other cameras"), &EditSettings::otherMinimum, &EditSettings::otherMaximum);
    addHelp(tr("Ranges take priority over the target balance. Recording gaps or the end of the project may shorten a "
               "shot; a lone available camera may need a longer hold."));
    column().addWidget(double_);
    addHelp(tr("One in four main camera holds is doubled on average. This can exceed the main camera maximum."));
    followAction(*try_, commands.of(Command::tryRules));
    arrangeTrial();
    setHelpTopic("balance-and-pacing");

    connect(share_, &StepSlider::chosen, this, [this](int percent) {
        edit([percent](EditSettings& settings) { settings.mainShare = percent; });
    });
    connect(double_, &QCheckBox::toggled, this, [this](bool on) {
        edit([on](EditSettings& settings) { settings.doubleMain = on; });
    });
}

void PacingPanel::addBounds(const QString& title, double EditSettings::* minimum, double EditSettings::* maximum)
{
    auto* group = new QGroupBox(title, this);
    auto* rows = new QVBoxLayout(group);
    rows->setContentsMargins(6, 2, 6, 2);
    rows->setSpacing(2);
    addBound(*rows, tr("Minimum"), minimum);
    addBound(*rows, tr("Maximum"), maximum);
    column().addWidget(group);
}

void PacingPanel::addBound(QVBoxLayout& rows, const QString& word, double EditSettings::* seconds)
{
    auto* stepper = new Stepper(utf8(word), stepsWithin(limits::shotLength, 1), this);
    rows.addWidget(stepper);
    connect(stepper, &Stepper::chosen, this, [this, seconds](double chosen) { view_.setBound(seconds, chosen); });
    bounds_.push_back({seconds, stepper});
}

void PacingPanel::arrangeTrial()
{
    column().addWidget(try_, 0, Qt::AlignLeft);
    auto* place = new KeptLines(3, this);
    place->setMinimumHeight(place->maximumHeight());
    place->add(*summary_);
    column().addWidget(place);
    table_->setModel(model_);
    table_->setItemDelegateForColumn(TrialTableModel::camera, new NameDelegate(table_));
    table_->setAccessibleName(tr("Share in the tries"));
    arrangeForReading(*table_);
    const auto wide = [this](const char* text) { return table_->fontMetrics().horizontalAdvance(text) + 12; };
    new ColumnWidths( // which the table owns
        *table_, TrialTableModel::camera,
        {{TrialTableModel::target, wide("Target"), wide("Target") + 8},
         {TrialTableModel::median, wide("Median"), wide("Median") + 8},
         {TrialTableModel::range, wide("00.0% to 00.0%"), wide("00.0% to 00.0%") + 8}});
    column().addWidget(table_);
}

void PacingPanel::tryRules()
{
    const auto& loaded = view_.state().loaded;
    if (!loaded || whyNot(Command::tryRules, {view_}))
        return;
    show(corvane::tryRules(loaded->imported, loaded->engine, settings()));
    bringIntoView(*table_);
}

void PacingPanel::show(const RuleTrial& trial)
{
    const bool any = trial.tries > 0 || trial.refusal;
    showMessage(*summary_, any ? trialSummary(trial, theme::decimalSign()) : "");
    model_->show(trial);
}

void PacingPanel::refresh(const Changes& changes)
{
    if (!has(changes, Changed::settings) && !has(changes, Changed::loaded))
        return;
    shareLabel_->setText(qt(shareLabel(view_)));
    share_->show(settings().mainShare);
    show({}); // what was tried were other rules
    if (has(changes, Changed::loaded)) {
        constexpr int most = 6;
        const int rows = std::min(most, static_cast<int>(view_.videoAngles().size()));
        table_->setFixedHeight(
            table_->horizontalHeader()->sizeHint().height() + 2 * table_->frameWidth() +
            rows * table_->verticalHeader()->defaultSectionSize());
    }
    for (const Bound& bound : bounds_)
        bound.stepper->show(settings().*bound.seconds);
    const QSignalBlocker blocker(double_);
    double_->setChecked(settings().doubleMain);
}

} // namespace corvane
