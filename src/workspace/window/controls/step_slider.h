#pragma once

#include "workspace/window/controls/step_range.h"

#include <QSlider>

namespace corvane {

/// A slider with whole steps. A value between two steps can be shown, and stays until a person moves the slider.
class StepSlider : public QSlider {
    Q_OBJECT
public:
    explicit StepSlider(StepRange range, QWidget* parent = nullptr);

    /// Shows the value, rounded to a whole number, without emitting chosen.
    void show(double value);

signals:
    /// A person or assistive technology chose a step.
    void chosen(int value);

private:
    void moveToStep(int action);
    void settle(int value);

    int step_;
};

} // namespace corvane
