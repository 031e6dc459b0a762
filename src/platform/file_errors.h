#pragma once

#include <optional>
#include <string>
#include <string_view>

/// How the functions of files.h say what they could not do; for their sources alone.
namespace corvane {

/// Throws the PlatformError "Cannot read edit.fcpxml: REASON."
[[noreturn]] void refuseFile(std::string_view whatFailed, std::string_view path, const std::string& reason);
/// The same in the system's words for an errno.
[[noreturn]] void refuseFile(std::string_view whatFailed, std::string_view path, int error);

/// Why a link leads to nothing; none where `path` is no link, or leads somewhere.
[[nodiscard]] std::optional<std::string> brokenLink(const std::string& path);

/// Why something of this mode, as stat tells it, holds no bytes of its own: a pipe, a socket, a device. None for files
/// and for folders.
[[nodiscard]] std::optional<std::string> specialFile(unsigned mode);

} // namespace corvane
