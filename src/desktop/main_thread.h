#pragma once

#include "platform/workspace_services.h"

namespace corvane {

/// Runs work on the thread of the interface, once it comes back to its event loop. Callable from every thread while
/// the application lives; later, nothing is run.
[[nodiscard]] MainThread interfaceThread();

} // namespace corvane
