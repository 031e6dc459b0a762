// What the user does with pointer, wheel and keys.
#include "workspace/window/pictures/cut_strip.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace corvane {

namespace {

constexpr double notch = 120; // of a wheel, in the toolkit's unit

/// Keys that mean in the strip what they mean in the table.
bool isForTheTable(const QKeyEvent& event)
{
    constexpr std::array keys = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,     Qt::Key_Down,    Qt::Key_Home,
                                 Qt::Key_End,  Qt::Key_Space, Qt::Key_PageUp, Qt::Key_PageDown};
    return std::ranges::find(keys, event.key()) != keys.end() || event.matches(QKeySequence::Copy) ||
           event.matches(QKeySequence::SelectAll);
}

} // namespace

/// The right button leaves what is chosen as it is if it is pressed on it, as
/// in the table.
void CutStrip::mousePressEvent(QMouseEvent* event)
{
    const auto frame = frameAt(event->position().toPoint());
    if (!frame)
        return;
    const std::size_t position = cutAt(view_.state().cuts(), *frame);
    const bool left = event->button() == Qt::LeftButton;
    if (left || (event->button() == Qt::RightButton && !std::ranges::binary_search(chosen_.positions, position)))
        emit picked(
            static_cast<int>(position), *frame, left ? event->modifiers() : Qt::KeyboardModifiers(Qt::NoModifier));
}

void CutStrip::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier)
        fit();
    else
        mousePressEvent(event);
}

void CutStrip::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    pointer_.reset();
    if (frameAt(place) && place.x() < lanes().right() && place.y() < lanes().bottom())
        pointer_ = place.x();
    update();
}

void CutStrip::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    pointer_.reset();
    update();
}

/// Upright it scrolls lanes that do not fit, otherwise the time; with Shift or
/// sideways always the time.
void CutStrip::wheelEvent(QWheelEvent* event)
{
    constexpr double part = 0.1; // of what is visible
    const QPoint turned = event->angleDelta();
    const bool sideways = event->modifiers().testFlag(Qt::ShiftModifier) || std::abs(turned.x()) > std::abs(turned.y());
    const double steps = (sideways && turned.x() != 0 ? turned.x() : turned.y()) / notch;
    const VisibleFrames& shown = time_.shown();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        const double x = std::clamp(event->position().x(), lanes().left(), lanes().right());
        zoom(std::pow(std::numbers::sqrt2, steps), scale().place(x));
    } else if (!sideways && laneBar_->maximum() > 0) {
        laneBar_->setValue(laneBar_->value() - static_cast<int>(std::lround(steps * 2 * laneHeight())));
    } else if (!time_.showsAll()) {
        time_.scrollTo(shown.first - steps * shown.count * part);
        showChange();
    } else {
        event->ignore(); // for the area around it
        return;
    }
    event->accept();
}

void CutStrip::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers held =
        event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier | Qt::ControlModifier);
    if (held == Qt::NoModifier && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)) {
        zoomIn();
    } else if (held == Qt::NoModifier && event->key() == Qt::Key_Minus) {
        zoomOut();
    } else if (event->key() == Qt::Key_Z && event->modifiers() == Qt::ShiftModifier) {
        fit();
    } else if (table_ != nullptr && isForTheTable(*event)) {
        QCoreApplication::sendEvent(table_, event);
        event->accept();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace corvane
