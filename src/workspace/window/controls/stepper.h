#pragma once

#include "workspace/window/controls/step_box.h"

#include <QLabel>
#include <QWidget>
#include <string>

namespace corvane {

/// A line "Minimum: 10 sec" with the box that changes the seconds. The line is the box's label.
class Stepper : public QWidget {
    Q_OBJECT
public:
    Stepper(std::string word, StepRange range, QWidget* parent = nullptr);

    /// Shows the seconds without emitting chosen.
    void show(double seconds);
    [[nodiscard]] StepBox& box() { return *box_; }

signals:
    void chosen(double seconds);

private:
    std::string word_;
    QLabel* label_;
    StepBox* box_;
};

} // namespace corvane
