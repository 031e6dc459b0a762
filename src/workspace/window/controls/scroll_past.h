#pragma once

#include <QWidget>

namespace corvane {

/// Lets a wheel that scrolls the column go past the control: the control takes the wheel only while it has the focus
/// and the scrolling did not begin elsewhere.
void letScrollingPass(QWidget& control);

} // namespace corvane
