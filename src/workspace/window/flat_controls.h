#pragma once

#include <QPainter>
#include <QStyleOption>

/// Paints the controls for which the style sheet would need images of arrows, in the same flat look as its buttons.
namespace corvane {

/// Paints a picker's background, and its arrow at `arrow`. The text is painted over it.
void paintPicker(QPainter& painter, const QStyleOptionComplex& option, const QRect& arrow);

/// Paints a number box's background and arrows. The number is painted over it.
void paintNumberBox(QPainter& painter, const QStyleOptionSpinBox& option, const QRect& up, const QRect& down);

} // namespace corvane
