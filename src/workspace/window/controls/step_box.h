#pragma once

#include "workspace/window/controls/step_range.h"

#include <QDoubleSpinBox>

namespace corvane {

/// A number that people choose in steps: the multiples of `step` within the range. A value between two steps can be
/// shown and stays until a person moves the control. Every number can be typed; one beyond the range goes to its
/// nearest end when the field is left, at Return, and before a command runs.
class StepBox : public QDoubleSpinBox {
    Q_OBJECT
public:
    explicit StepBox(StepRange range, QWidget* parent = nullptr);

    /// Shows the value; chosen is not told.
    void show(double value);

    /// What is half typed goes; the value is shown again.
    void forgetTyping();

    void stepBy(int steps) override;
    [[nodiscard]] QString textFromValue(double value) const override;
    [[nodiscard]] double valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& caret) const override;
    void fixup(QString& text) const override;

    bool event(QEvent* event) override;

signals:
    /// A person, or what assists one, chose a step.
    void chosen(double value);

private:
    void settle(double value);

    int step_;
    bool typing_ = false; ///< the change of the text that is just told was typed
};

} // namespace corvane
