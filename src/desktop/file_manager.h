#pragma once

#include <string>

namespace corvane {

/// Shows the file, selected, in the desktop's file manager; where none answers on the bus, its folder is opened. False
/// where nothing can do that.
[[nodiscard]] bool showInFileManager(const std::string& path);

} // namespace corvane
