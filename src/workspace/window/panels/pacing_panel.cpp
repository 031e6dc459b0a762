#include "workspace/window/panels/pacing_panel.h"

#include "workspace/captions.h"
#include "workspace/window/qt_text.h"

#include <QGroupBox>
#include <QPushButton>
#include <QSignalBlocker>

namespace corvane {

PacingPanel::PacingPanel(ContentView& view, const CommandActions& commands, QWidget* parent)
    : Panel(tr("Camera balance and pacing"), view, parent),
      shareLabel_(new QLabel(this)),
      share_(new StepSlider(stepsWithin(limits::mainShare, 5), this)),
      double_(new QCheckBox(tr("Randomly &double main camera holds"), this))
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
    auto* tryRules = new QPushButton(this);
    followAction(*tryRules, commands.of(Command::tryRules));
    column().addWidget(tryRules, 0, Qt::AlignLeft);
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

void PacingPanel::refresh(const Changes& changes)
{
    if (!has(changes, Changed::settings) && !has(changes, Changed::loaded))
        return;
    shareLabel_->setText(qt(shareLabel(view_)));
    share_->show(settings().mainShare);
    for (const Bound& bound : bounds_)
        bound.stepper->show(settings().*bound.seconds);
    const QSignalBlocker blocker(double_);
    double_->setChecked(settings().doubleMain);
}

} // namespace corvane
