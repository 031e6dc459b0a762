#pragma once

namespace corvane {

/// Returns freed memory to the system. Call this after something large was freed.
void giveBackFreeMemory();

} // namespace corvane
