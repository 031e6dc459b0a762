#pragma once

namespace corvane {

/// Gives the system back what was freed and is only kept for later: for when something large has gone.
void giveBackFreeMemory();

} // namespace corvane
