#pragma once

#include <QWidget>

namespace corvane {

/// Makes Tab visit everything below `root` in layout order. Otherwise controls that were created later would come last.
void orderTabsByLayout(QWidget& root);

} // namespace corvane
