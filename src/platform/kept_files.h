#pragma once

#include "platform/files.h"

#include <string>
#include <vector>

/// Keeps files that saving would otherwise have destroyed: as "session-v1 (kept).json", "session-v1 (kept 2).json" and
/// so on, beside the original.
namespace corvane {

/// Keeps the file under the first free name of these, and returns that path. The file is copied, or renamed if it
/// cannot be read or has more than `most` bytes. Throws PlatformError and then has changed nothing; so it does for a
/// folder, and for a link to something that cannot be read.
std::string keepAside(const std::string& path, std::uint64_t most, FileCalls& calls);

/// Renames whatever has this path, even a folder or a link, to the first free name of these, and returns the new path.
/// Throws PlatformError.
std::string moveAside(const std::string& path, FileCalls& calls);

/// The paths of all kept versions of this file, oldest first.
[[nodiscard]] std::vector<std::string> keptBeside(const std::string& path);

} // namespace corvane
