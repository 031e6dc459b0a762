#include "platform/application_support.h"

#include "base/error.h"
#include "platform/files.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <optional>
#include <vector>

namespace corvane {

namespace {

/// The value of an environment variable if it is an absolute path; relative paths must be ignored.
std::optional<std::string> absolutePathFrom(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr && *value == '/' ? std::optional<std::string>(value) : std::nullopt;
}

/// The home folder in the system's user database, for programs that are started without environment variables.
std::string listedHome()
{
    constexpr std::size_t enough = std::size_t{1} << 16U;
    std::vector<char> room(enough);
    passwd user{};
    passwd* found = nullptr;
    ::getpwuid_r(::getuid(), &user, room.data(), room.size(), &found);
    if (found == nullptr || found->pw_dir == nullptr || *found->pw_dir != '/')
        throw PlatformError("The home folder of this user cannot be found.");
    return found->pw_dir;
}

} // namespace

std::string userFolder(const char* variable, std::string_view inHome)
{
    if (const auto folder = absolutePathFrom(variable))
        return *folder;
    const auto home = absolutePathFrom("HOME");
    return pathIn(home ? *home : listedHome(), inHome);
}

std::string shortPath(const std::string& path)
{
    const auto home = absolutePathFrom("HOME");
    if (!home || !path.starts_with(*home))
        return path;
    const std::string inHome = path.substr(home->size());
    return inHome.empty() || inHome.front() == '/' ? "~" + inHome : path;
}

std::string ApplicationSupport::folder()
{
    std::string folder = userFolder("XDG_DATA_HOME", ".local/share");
    makeFolders(folder);
    return folder;
}

ApplicationSupport& ApplicationSupport::system()
{
    static ApplicationSupport support;
    return support;
}

} // namespace corvane
