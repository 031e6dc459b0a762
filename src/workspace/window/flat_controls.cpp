#include "workspace/window/flat_controls.h"

#include "workspace/window/theme.h"

#include <QAbstractSpinBox>

namespace corvane {

namespace {

// The same colours as those of buttons in the style sheet.
const QColor face(0x47, 0x46, 0x45);
const QColor faceHovered(0x53, 0x51, 0x4f);
const QColor facePressed(0x3b, 0x3a, 0x39);
const QColor faceDisabled(0x39, 0x38, 0x37);
const QColor edge(0x5a, 0x57, 0x53);
const QColor edgeDisabled(0x45, 0x43, 0x41);
constexpr double radius = 6;

void paintGround(QPainter& painter, const QStyleOption& option, const QColor& ground)
{
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool focused = enabled && option.state.testFlag(QStyle::State_HasFocus);
    const double width = focused ? 2 : 1;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(focused ? theme::orange : enabled ? edge : edgeDisabled, width));
    painter.setBrush(enabled ? ground : faceDisabled);
    const double inset = width / 2;
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), radius, radius);
}

enum class Arrow { up, down };

void paintArrow(QPainter& painter, const QRect& place, Arrow arrow, const QColor& color)
{
    constexpr double halfWidth = 3;
    const double height = arrow == Arrow::down ? 1.5 : -1.5;
    const QPointF middle = QRectF(place).center();
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF(
        {middle + QPointF(-halfWidth, -height), middle + QPointF(0, height), middle + QPointF(halfWidth, -height)}));
}

QColor arrowColor(const QStyleOption& option, bool usable)
{
    return option.palette.color(usable ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
}

} // namespace

void paintPicker(QPainter& painter, const QStyleOptionComplex& option, const QRect& arrow)
{
    painter.save();
    const bool pressed = option.state.testFlag(QStyle::State_On) || option.state.testFlag(QStyle::State_Sunken);
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    paintGround(painter, option, pressed ? facePressed : hovered ? faceHovered : face);
    paintArrow(painter, arrow, Arrow::down, arrowColor(option, option.state.testFlag(QStyle::State_Enabled)));
    painter.restore();
}

void paintNumberBox(QPainter& painter, const QStyleOptionSpinBox& option, const QRect& up, const QRect& down)
{
    painter.save();
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    paintGround(painter, option, theme::fieldGrey);
    const auto paintStep = [&](const QRect& place, Arrow arrow, QStyle::SubControl part,
                               QAbstractSpinBox::StepEnabledFlag step) {
        const bool usable = enabled && option.stepEnabled.testFlag(step);
        if (usable && option.activeSubControls.testFlag(part)) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(option.state.testFlag(QStyle::State_Sunken) ? facePressed : faceHovered);
            painter.drawRoundedRect(QRectF(place).adjusted(1, 1, -1, -1), radius / 2, radius / 2);
        }
        paintArrow(painter, place, arrow, arrowColor(option, usable));
    };
    paintStep(up, Arrow::up, QStyle::SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled);
    paintStep(down, Arrow::down, QStyle::SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled);
    painter.restore();
}

} // namespace corvane
