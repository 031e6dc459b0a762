#include "tools/loaded_file.h"

#include "base/error.h"
#include "intake/project_file.h"

#include <filesystem>
#include <utility>

namespace corvane {

LoadedFile loadFile(const std::string& path)
{
    if (const auto refusal = addressRefusal(path))
        throw PlatformError(*refusal);
    const ProjectFileContent file = readProjectFile(path);
    if (file.error)
        throw PlatformError(*file.error);
    auto [project, engine] = loadProject(file.bytes);
    EditSettings settings = startingSettings(project, engine);
    return {path, std::move(project), std::move(engine), std::move(settings)};
}

std::string shownPath(const std::string& path)
{
    std::error_code gone;
    const std::filesystem::path folder = std::filesystem::current_path(gone);
    if (gone || !std::filesystem::path(path).is_absolute())
        return path;
    const std::string relative = std::filesystem::path(path).lexically_relative(folder).string();
    return relative.empty() || relative.starts_with("..") ? path : relative;
}

} // namespace corvane
