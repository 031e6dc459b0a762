#pragma once

#include <QWidget>

namespace corvane {

/// Lets the mouse wheel scroll the column past the control. The control takes wheel events only if it has the focus and
/// the scrolling did not begin elsewhere.
void letScrollingPass(QWidget& control);

} // namespace corvane
