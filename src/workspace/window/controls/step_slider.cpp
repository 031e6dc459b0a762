#include "workspace/window/controls/step_slider.h"

#include "workspace/window/controls/scroll_past.h"

#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

namespace corvane {

StepSlider::StepSlider(StepRange range, QWidget* parent) : QSlider(Qt::Horizontal, parent), step_(range.step)
{
    setRange(range.minimum, range.maximum);
    setSingleStep(range.step);
    setPageStep(range.step * 2);
    letScrollingPass(*this);
    connect(this, &QSlider::actionTriggered, this, &StepSlider::moveToStep);
    connect(this, &QSlider::valueChanged, this, &StepSlider::settle);
}

void StepSlider::show(double value)
{
    const QSignalBlocker blocker(this);
    setValue(static_cast<int>(std::round(value)));
}

/// From a value between two steps, keys and clicks beside the handle go to the next step, not past it.
void StepSlider::moveToStep(int action)
{
    const int below = value() / step_;
    const int above = (value() + step_ - 1) / step_;
    if (action == SliderSingleStepAdd)
        setSliderPosition((below + 1) * step_);
    else if (action == SliderSingleStepSub)
        setSliderPosition((above - 1) * step_);
    else // a drag, a page, an end
        setSliderPosition((sliderPosition() + step_ / 2) / step_ * step_);
}

void StepSlider::settle(int value)
{
    const int onStep = std::clamp((value + step_ / 2) / step_ * step_, minimum(), maximum());
    if (onStep != value) {
        const QSignalBlocker blocker(this);
        setValue(onStep);
    }
    emit chosen(onStep);
}

} // namespace corvane
