#include "workspace/window/controls/step_box.h"

#include "base/numbers.h"
#include "workspace/window/controls/scroll_past.h"
#include "workspace/window/controls/undo_keys.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

/// The typed text with the sign and decimal point that the program's numbers have.
QString plainNumber(const QString& text)
{
    QString plain = text.trimmed().replace(qt(theme::decimalSign()), ".");
    for (QChar& each : plain) {
        if (each.isDigit())
            each = QChar('0' + each.digitValue());
    }
    return plain;
}

} // namespace

StepBox::StepBox(StepRange range, QWidget* parent) : QDoubleSpinBox(parent), step_(range.step)
{
    setRange(range.minimum, range.maximum);
    setSingleStep(range.step);
    setProperty("stepSize", range.step); // from which the toolkit informs assistive technology
    setDecimals(3);                      // values between the steps can be shown
    setKeyboardTracking(false);
    setAlignment(Qt::AlignRight);
    setAccelerated(true);
    lineEdit()->setAcceptDrops(false); // files are dropped on the window
    letScrollingPass(*this);
    connect(this, &QDoubleSpinBox::valueChanged, this, &StepBox::settle);
    // Typed text takes effect when the field loses the focus; text from assistive technology takes effect at once.
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { typing_ = true; });
    connect(lineEdit(), &QLineEdit::textChanged, this, [this] {
        if (!std::exchange(typing_, false))
            interpretText();
    });
}

void StepBox::show(double value)
{
    if (value == this->value())
        return; // does not disturb typing
    const QSignalBlocker blocker(this);
    setValue(value);
}

void StepBox::forgetTyping()
{
    lineEdit()->setText(textFromValue(value()));
}

void StepBox::stepBy(int steps)
{
    interpretText(); // takes the typed number
    const double position = value() / step_;
    const double next = (steps > 0 ? std::floor(position) : std::ceil(position)) + steps;
    setValue(next * step_);
}

QString StepBox::textFromValue(double value) const
{
    return qt(shortNumber(value, theme::decimalSign()));
}

double StepBox::valueFromText(const QString& text) const
{
    return readNumber(utf8(plainNumber(text))).value_or(value());
}

/// Accepts digits that lead beyond the range, which the toolkit would refuse while keeping the others.
QValidator::State StepBox::validate(QString& text, int&) const
{
    static const QRegularExpression numberOrItsStart("^[+-]?\\d*\\.?\\d*$");
    const QString plain = plainNumber(text);
    if (!numberOrItsStart.match(plain).hasMatch())
        return QValidator::Invalid;
    const auto number = readNumber(utf8(plain));
    const bool inRange = number && *number >= minimum() && *number <= maximum();
    return inRange ? QValidator::Acceptable : QValidator::Intermediate;
}

void StepBox::fixup(QString& text) const
{
    if (const auto number = readNumber(utf8(plainNumber(text))))
        text = textFromValue(std::clamp(*number, minimum(), maximum()));
}

/// A menu shortcut uses the values shown, so a number that is still being typed takes effect first.
bool StepBox::event(QEvent* event)
{
    const auto* key = event->type() == QEvent::ShortcutOverride ? dynamic_cast<QKeyEvent*>(event) : nullptr;
    const bool isUndo = key != nullptr && isUndoKey(*key);
    if (isUndo)
        event->ignore(); // the window's Undo takes a number back, not its digits
    const bool handled = isUndo || QDoubleSpinBox::event(event);
    if (key != nullptr && !event->isAccepted()) { // and not a key of the field itself
        const bool withOther = key->key() != Qt::Key_Control && key->key() != Qt::Key_Alt;
        if (withOther && (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0)
            interpretText();
    }
    return handled;
}

void StepBox::settle(double value)
{
    const double onStep = std::clamp(std::round(value / step_) * step_, minimum(), maximum());
    if (onStep != value) {
        const QSignalBlocker blocker(this);
        setValue(onStep);
    }
    emit chosen(onStep);
}

} // namespace corvane
