#include "intake/project_file.h"

#include "platform/error.h"
#include "platform/files.h"
#include "platform/text.h"

namespace corvane {

namespace {

/// Folders, and so bundles, may be written with a slash at the end.
std::string_view withoutFinalSlashes(std::string_view location)
{
    while (location.size() > 1 && location.ends_with('/'))
        location.remove_suffix(1);
    return location;
}

} // namespace

std::optional<ProjectFileKind> projectFileKind(std::string_view location)
{
    if (location.find('\0') != std::string_view::npos) // the file system would read another name than was judged
        return std::nullopt;
    const std::string_view name = lastComponent(withoutFinalSlashes(location));
    const std::size_t point = name.rfind('.');
    const std::string extension = point == std::string_view::npos ? "" : lowerCased(name.substr(point + 1));
    if (extension == "fcpxml")
        return ProjectFileKind::file;
    if (extension == "fcpxmld")
        return ProjectFileKind::bundle;
    return std::nullopt;
}

ProjectFileContent readProjectFile(const std::string& location, SecurityScope& scope)
{
    const SecurityScopedAccess access(scope, location);
    const auto kind = projectFileKind(location);
    if (!kind)
        return {.bytes = {}, .error = std::string(chooseProjectFileText)};
    const std::string path(withoutFinalSlashes(location));
    const std::string file = *kind == ProjectFileKind::bundle ? pathIn(path, "Info.fcpxml") : path;
    try {
        return {.bytes = readFile(file, largestProject), .error = {}};
    } catch (const PlatformError& failure) {
        return {.bytes = {}, .error = failure.what()};
    }
}

} // namespace corvane
