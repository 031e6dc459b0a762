#pragma once

#include "platform/workspace_services.h"

namespace corvane {

/// Runs functions on the interface thread, once it returns to its event loop. Can be called from any thread while the
/// application exists; after that, nothing is run.
[[nodiscard]] MainThread interfaceThread();

} // namespace corvane
