#pragma once

#include <QWidget>

namespace corvane {

/// Makes Tab go through everything below `root` in the order in which it is laid out. Controls that were made later
/// would otherwise come last.
void orderTabsByLayout(QWidget& root);

} // namespace corvane
