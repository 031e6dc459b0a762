#pragma once

#include <string>

namespace corvane {

/// Shows the file, selected, in the desktop's file manager. If none answers on the bus, opens the file's folder. False
/// if neither is possible.
[[nodiscard]] bool showInFileManager(const std::string& path);

} // namespace corvane
