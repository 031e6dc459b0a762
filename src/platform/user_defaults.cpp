#include "platform/user_defaults.h"

#include "base/error.h"
#include "platform/application_support.h"
#include "platform/kept_files.h"

namespace corvane {

FileUserDefaults::FileUserDefaults(std::string folder, FileCalls& calls) : folder_(std::move(folder)), calls_(calls) {}

std::string FileUserDefaults::usualFolder()
{
    return pathIn(userFolder("XDG_CONFIG_HOME", ".config"), "Corvane");
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
    const std::string path = pathIn(folder_, key);
    try {
        return std::string(lastComponent(corvane::keepAside(path, largestDefault, calls_)));
    } catch (const PlatformError&) { // it is no file but, for example, a folder
        return std::string(lastComponent(moveAside(path, calls_)));
    }
}

} // namespace corvane
