#pragma once

#include <QWidget>

namespace corvane {

/// Scrolls the area around a widget until all of the widget is seen, also one that was added just now.
void bringIntoView(QWidget& widget);

} // namespace corvane
