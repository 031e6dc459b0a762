#pragma once

#include "workspace/window/pictures/cut_strip.h"

#include <QAccessible>

namespace corvane {

/// Describes the strip to screen readers: a slider whose value is the number of the current cut, from 1, with the cut
/// in words as its text.
[[nodiscard]] QAccessibleInterface* accessibleStrip(CutStrip& strip);

} // namespace corvane
