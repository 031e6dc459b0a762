#pragma once

#include "platform/security_scope.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// The largest XML of a project, in bytes.
constexpr std::uint64_t largestProject = std::uint64_t{256} << 20U;

/// The message for a wrong file extension, however the file arrives.
constexpr std::string_view chooseProjectFileText = "Choose a .fcpxml file or .fcpxmld bundle.";

enum class ProjectFileKind {
    file,   ///< .fcpxml: the XML itself
    bundle, ///< .fcpxmld: a folder with the XML in "Info.fcpxml"
};

/// Depends only on the extension (whatever follows the last point of the last component), ignoring case. None for any
/// other extension.
[[nodiscard]] std::optional<ProjectFileKind> projectFileKind(std::string_view location);

/// The message for a location that is a web address such as "https://…"; none for all others.
[[nodiscard]] std::optional<std::string> addressRefusal(std::string_view location);

/// The bytes of a project file, or `error`, the message for the user. An empty file has no bytes and no error.
struct ProjectFileContent {
    std::string bytes;
    std::optional<std::string> error;
    bool operator==(const ProjectFileContent&) const = default;
};

/// Reads the file, or the bundle's "Info.fcpxml", with security-scoped access to `location`. If it cannot be read, the
/// error is the file system's, or a clearer one of the program's own. Does not check whether the bytes are a project.
[[nodiscard]] ProjectFileContent readProjectFile(
    const std::string& location, SecurityScope& scope = SecurityScope::system());

} // namespace corvane
