#include "intake/project_file.h"

#include "base/error.h"
#include "base/text.h"
#include "platform/files.h"

namespace corvane {

namespace {

/// The paths of folders, and so of bundles, may end in a slash.
std::string_view withoutFinalSlashes(std::string_view location)
{
    while (location.size() > 1 && location.ends_with('/'))
        location.remove_suffix(1);
    return location;
}

/// True if the path contains U+FFFD, which replaces malformed bytes when a path is converted to text and back.
bool holdsReplacedBytes(std::string_view path)
{
    return path.find("\xEF\xBF\xBD") != std::string_view::npos;
}

constexpr const char* notTextReason =
    ": its name, or that of a folder on the way to it, is not UTF-8 text. Rename it, then open it again.";

} // namespace

std::optional<ProjectFileKind> projectFileKind(std::string_view location)
{
    if (location.find('\0') != std::string_view::npos) // the file system would use another name than the one checked
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

std::optional<std::string> addressRefusal(std::string_view location)
{
    const std::size_t colon = location.find("://");
    if (colon == std::string_view::npos || location.substr(0, colon).find_first_of("/.") != std::string_view::npos)
        return std::nullopt;
    return std::string(location) +
           " is an address and not a file on this computer. Download the file, then open it from where it was saved.";
}

ProjectFileContent readProjectFile(const std::string& location, SecurityScope& scope)
{
    const SecurityScopedAccess access(scope, location);
    const auto kind = projectFileKind(location);
    if (!kind)
        return {.bytes = {}, .error = std::string(chooseProjectFileText)};
    std::string path(withoutFinalSlashes(location));
    if (!isText(path) || (holdsReplacedBytes(path) && !somethingNamed(path)))
        return {.bytes = {}, .error = "Cannot read " + std::string(lastComponent(path)) + notTextReason};
    if (*kind == ProjectFileKind::bundle)
        path = pathIn(path, "Info.fcpxml");
    try {
        return {.bytes = readFile(path, largestProject), .error = {}};
    } catch (const PlatformError& failure) {
        return {.bytes = {}, .error = failure.what()};
    }
}

} // namespace corvane
