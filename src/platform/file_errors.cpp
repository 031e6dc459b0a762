#include "platform/file_errors.h"

#include "base/error.h"
#include "platform/files.h"

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace corvane {

void refuseFile(std::string_view whatFailed, std::string_view path, const std::string& reason)
{
    throw PlatformError(std::string(whatFailed) + " " + std::string(lastComponent(path)) + ": " + reason + ".");
}

void refuseFile(std::string_view whatFailed, std::string_view path, int error)
{
    refuseFile(whatFailed, path, std::generic_category().message(error));
}

std::optional<std::string> brokenLink(const std::string& path)
{
    std::error_code none;
    const std::filesystem::path target = std::filesystem::read_symlink(path, none);
    struct stat facts{};
    if (none || ::stat(path.c_str(), &facts) == 0 || (errno != ENOENT && errno != ENOTDIR && errno != ELOOP))
        return std::nullopt;
    if (errno == ELOOP)
        return "it is a link to " + target.native() + ", and leads back to itself";
    return "it is a link to " + target.native() + ", and nothing is there";
}

std::optional<std::string> specialFile(unsigned mode)
{
    if (S_ISREG(mode) || S_ISDIR(mode))
        return std::nullopt;
    const std::string what = S_ISFIFO(mode) ? "a named pipe" : S_ISSOCK(mode) ? "a socket" : "a device";
    return "it is " + what + " and not a file";
}

} // namespace corvane
