#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The errors that the functions of files.h throw; for their source files only.
namespace corvane {

/// Throws the PlatformError "Cannot read edit.fcpxml: REASON."
[[noreturn]] void refuseFile(std::string_view whatFailed, std::string_view path, const std::string& reason);
/// The same, with the system's text for an errno as the reason.
[[noreturn]] void refuseFile(std::string_view whatFailed, std::string_view path, int error);

/// Why a symbolic link is broken; none if `path` is not a link or its target exists.
[[nodiscard]] std::optional<std::string> brokenLink(const std::string& path);

/// Why something with this mode (from stat) is not a file: it is a pipe, a socket or a device. None for files and
/// folders.
[[nodiscard]] std::optional<std::string> specialFile(unsigned mode);

} // namespace corvane
