#include "platform/user_defaults.h"

#include "platform/kept_files.h"

#include <cstdlib>

namespace corvane {

FileUserDefaults::FileUserDefaults(std::string folder, FileCalls& calls) : folder_(std::move(folder)), calls_(calls) {}

std::string FileUserDefaults::usualFolder()
{
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && *config == '/')
        return pathIn(config, "Corvane");
    const char* home = std::getenv("HOME");
    return pathIn(home == nullptr ? "/" : home, ".config/Corvane");
}

std::string FileUserDefaults::value(const std::string& key) const
{
    const std::string path = pathIn(folder_, key);
    return somethingNamed(path) ? readFile(path, largestDefault) : std::string();
}

void FileUserDefaults::setValue(const std::string& key, std::string_view bytes)
{
    makeFolders(folder_, calls_);
    replaceFile(pathIn(folder_, key), {&bytes, 1}, calls_);
}

std::string FileUserDefaults::keepAside(const std::string& key)
{
    return std::string(lastComponent(corvane::keepAside(pathIn(folder_, key), largestDefault, calls_)));
}

} // namespace corvane
