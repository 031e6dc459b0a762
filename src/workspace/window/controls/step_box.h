#pragma once

#include "workspace/window/controls/step_range.h"

#include <QDoubleSpinBox>

namespace corvane {

/// A number box whose values are the multiples of `step` within the range. A value between two steps can be shown, and
/// stays until a person changes it. Any number can be typed; when the field loses the focus, at Return, and before a
/// command runs, a number outside the range is replaced with the nearest end.
class StepBox : public QDoubleSpinBox {
    Q_OBJECT
public:
    explicit StepBox(StepRange range, QWidget* parent = nullptr);

    /// Shows the value without emitting chosen.
    void show(double value);

    /// Discards what has been typed so far, and shows the value again.
    void forgetTyping();

    void stepBy(int steps) override;
    [[nodiscard]] QString textFromValue(double value) const override;
    [[nodiscard]] double valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& caret) const override;
    void fixup(QString& text) const override;

    bool event(QEvent* event) override;

signals:
    /// A person or assistive technology chose a step.
    void chosen(double value);

private:
    void settle(double value);

    int step_;
    bool typing_ = false; ///< the current change of the text was typed
};

} // namespace corvane
