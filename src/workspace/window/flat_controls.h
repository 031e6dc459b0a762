#pragma once

#include <QPainter>
#include <QStyleOption>

/// Controls that the style sheet cannot paint without pictures of arrows, as flat as the buttons that it paints.
namespace corvane {

/// The ground of a picker and the arrow at `arrow`; its text is painted over it.
void paintPicker(QPainter& painter, const QStyleOptionComplex& option, const QRect& arrow);

/// The ground of a number box and its arrows; the number is painted over it.
void paintNumberBox(QPainter& painter, const QStyleOptionSpinBox& option, const QRect& up, const QRect& down);

} // namespace corvane
