#include "platform/resources.h"

#include "platform/files.h"

#include <filesystem>
#include <system_error>

namespace corvane {

std::optional<std::string> ResourceFolders::path(std::string_view name, std::string_view extension) const
{
    const std::string file = std::string(name) + "." + std::string(extension);
    for (const std::string& folder : folders_) {
        std::string path = pathIn(folder, file);
        std::error_code ignored; // a folder that cannot be read does not have the file
        if (std::filesystem::is_regular_file(path, ignored))
            return path;
    }
    return std::nullopt;
}

} // namespace corvane
