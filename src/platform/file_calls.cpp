#include "platform/files.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

namespace corvane {

namespace {

constexpr mode_t newFileMode = 0666;   // minus the user's umask
constexpr mode_t newFolderMode = 0700; // folders hold the program's own data, which is private

iovec block(std::string_view bytes)
{
    // writev only reads the bytes, but its record is shared with readv and so is not const.
    return {const_cast<char*>(bytes.data()), bytes.size()}; // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

} // namespace

int FileCalls::open(const std::string& path, int flags)
{
    return ::open(path.c_str(), flags | O_CLOEXEC, newFileMode); // NOLINT(cppcoreguidelines-pro-type-vararg)
}

int FileCalls::openNameless(const std::string& folder)
{
    return open(folder, O_TMPFILE | O_WRONLY);
}

std::ptrdiff_t FileCalls::write(int file, std::span<const std::string_view> parts)
{
    std::array<iovec, 1024> blocks{}; // the most that Linux accepts
    const std::size_t count = std::min(parts.size(), blocks.size());
    std::transform(parts.begin(), parts.begin() + static_cast<std::ptrdiff_t>(count), blocks.begin(), block);
    return ::writev(file, blocks.data(), static_cast<int>(count));
}

int FileCalls::sync(int file)
{
    return ::fsync(file);
}

void FileCalls::takeRights(int file, const std::string& model)
{
    struct stat facts{};
    if (::stat(model.c_str(), &facts) != 0)
        return;
    if (::fchown(file, static_cast<uid_t>(-1), facts.st_gid) != 0)
        facts.st_mode &= ~static_cast<mode_t>(S_IRWXG); // another group must not get the old group's rights
    ::fchmod(file, facts.st_mode & static_cast<mode_t>(S_IRWXU | S_IRWXG | S_IRWXO));
}

int FileCalls::close(int file)
{
    return ::close(file);
}

int FileCalls::nameFile(int file, const std::string& path)
{
    const std::string nameless = "/proc/self/fd/" + std::to_string(file);
    return ::linkat(AT_FDCWD, nameless.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW);
}

int FileCalls::renameToNew(const std::string& from, const std::string& to)
{
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return -1;
    // Network file systems do not support such a rename, but they support links, which never replace.
    if (::link(from.c_str(), to.c_str()) != 0)
        return -1;
    ::unlink(from.c_str());
    return 0;
}

int FileCalls::renameOver(const std::string& from, const std::string& to)
{
    return ::rename(from.c_str(), to.c_str());
}

int FileCalls::exchange(const std::string& one, const std::string& other)
{
    return ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE);
}

int FileCalls::unlink(const std::string& path)
{
    return ::unlink(path.c_str());
}

int FileCalls::makeFolder(const std::string& path)
{
    return ::mkdir(path.c_str(), newFolderMode);
}

void surviveFileSizeLimit()
{
    struct sigaction nothing{};
    nothing.sa_handler = [](int) {}; // not SIG_IGN, which child processes would inherit
    ::sigaction(SIGXFSZ, &nothing, nullptr);
}

FileCalls& FileCalls::system()
{
    static FileCalls calls;
    return calls;
}

} // namespace corvane
