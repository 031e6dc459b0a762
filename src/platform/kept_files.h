#pragma once

#include "platform/files.h"

#include <string>
#include <vector>

/// Files that were in the way of a save and are nowhere else: "session-v1 (kept).json", "session-v1 (kept 2).json" and
/// so on, beside the file that they were.
namespace corvane {

/// Keeps the file under the first of these names that is free, and returns that path. The file is copied; one that
/// cannot be read, or has more than `most` bytes, is renamed. Fails with PlatformError and then has changed nothing:
/// also for a folder, and for a link to something that cannot be read.
std::string keepAside(const std::string& path, std::uint64_t most, FileCalls& calls);

/// Renames whatever has this path, a folder or a link as well, to the first of these names that is free, and returns
/// that path. Fails with PlatformError.
std::string moveAside(const std::string& path, FileCalls& calls);

/// The paths of all that are kept of this file, the oldest first.
[[nodiscard]] std::vector<std::string> keptBeside(const std::string& path);

} // namespace corvane
