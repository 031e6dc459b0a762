#pragma once

#include <QScrollArea>
#include <QWidget>

namespace corvane {

/// The area that scrolls the widget; none for one that is not scrolled.
[[nodiscard]] QScrollArea* scrollAreaOf(const QWidget& widget);

/// Scrolls the area around a widget until all of the widget is seen, also one that was added just now.
void bringIntoView(QWidget& widget);

} // namespace corvane
