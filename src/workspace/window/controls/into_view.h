#pragma once

#include <QScrollArea>
#include <QWidget>

namespace corvane {

/// The scroll area that contains the widget; null if there is none.
[[nodiscard]] QScrollArea* scrollAreaOf(const QWidget& widget);

/// Scrolls the area around a widget until all of the widget is visible, even if it has just been added.
void bringIntoView(QWidget& widget);

} // namespace corvane
