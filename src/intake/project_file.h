#pragma once

#include "platform/security_scope.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// The most bytes that the XML of a project may have.
constexpr std::uint64_t largestProject = std::uint64_t{256} << 20U;

/// What every road for files says to a wrong extension.
constexpr std::string_view chooseProjectFileText = "Choose a .fcpxml file or .fcpxmld bundle.";

enum class ProjectFileKind {
    file,   ///< .fcpxml: the XML itself
    bundle, ///< .fcpxmld: a folder with the XML in "Info.fcpxml"
};

/// Told by the extension alone, in capitals or not: what follows the last point of the last component. None for any
/// other extension.
[[nodiscard]] std::optional<ProjectFileKind> projectFileKind(std::string_view location);

/// What to say to a location that is the address of something elsewhere, such as "https://…"; none for all others.
[[nodiscard]] std::optional<std::string> addressRefusal(std::string_view location);

/// The bytes of a project file, or `error`, the text for the user. An empty file has no bytes and no error.
struct ProjectFileContent {
    std::string bytes;
    std::optional<std::string> error;
    bool operator==(const ProjectFileContent&) const = default;
};

/// Reads the file, or the bundle's "Info.fcpxml", within security-scoped access to `location`. What cannot be read is
/// told in the file system's words, or the program's where it knows better; whether the bytes are a project is not
/// looked at.
[[nodiscard]] ProjectFileContent readProjectFile(
    const std::string& location, SecurityScope& scope = SecurityScope::system());

} // namespace corvane
