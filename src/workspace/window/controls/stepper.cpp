#include "workspace/window/controls/stepper.h"

#include "workspace/captions.h"
#include "workspace/window/qt_text.h"

#include <QHBoxLayout>

namespace corvane {

Stepper::Stepper(std::string word, StepRange range, QWidget* parent)
    : QWidget(parent), word_(std::move(word)), label_(new QLabel(this)), box_(new StepBox(range, this))
{
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    label_->setWordWrap(true);
    line->addWidget(label_, 1);
    line->addWidget(box_);
    label_->setBuddy(box_);
    show(range.minimum);
    connect(box_, &StepBox::chosen, this, &Stepper::chosen);
}

void Stepper::show(double seconds)
{
    label_->setText(qt(word_.empty() ? secondsLabel(seconds) : secondsLabel(word_, seconds)));
    box_->show(seconds);
}

} // namespace corvane
