#include "platform/files.h"

#include "platform/error.h"
#include "platform/identifier.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace corvane {

namespace {

constexpr mode_t newFileMode = 0666; // less the user's own mask

[[noreturn]] void fail(std::string_view what, std::string_view path, int error)
{
    throw PlatformError(
        std::string(what) + " " + std::string(lastComponent(path)) + ": " + std::generic_category().message(error) +
        ".");
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

/// An open file that is closed at the end of the scope.
class OpenFile {
public:
    OpenFile(FileCalls& calls, const std::string& path, int flags)
        : calls_(calls), file_(calls.open(path, flags | O_CLOEXEC))
    {
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile()
    {
        if (isOpen())
            calls_.close(file_);
    }

    [[nodiscard]] bool isOpen() const { return file_ >= 0; }
    [[nodiscard]] int number() const { return file_; }

private:
    FileCalls& calls_;
    int file_;
};

/// 0, or the error.
int writeAndSync(FileCalls& calls, int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::ptrdiff_t written = calls.write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? errno : ENOSPC;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return calls.sync(file) == 0 ? 0 : errno;
}

/// 0, or the error. File systems that cannot sync a folder say EINVAL; there is nothing more to do on them.
int syncFolder(FileCalls& calls, const std::string& folder)
{
    const OpenFile file(calls, folder, O_RDONLY | O_DIRECTORY);
    if (!file.isOpen())
        return errno;
    return calls.sync(file.number()) == 0 || errno == EINVAL ? 0 : errno;
}

enum class Outcome { done, notSupported };

/// A file without a name until it is whole: even a killed process leaves nothing.
Outcome writeNameless(FileCalls& calls, const std::string& path, std::string_view bytes)
{
    const OpenFile file(calls, folderOf(path), O_TMPFILE | O_WRONLY);
    if (!file.isOpen()) {
        if (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)
            return Outcome::notSupported;
        fail("Cannot write", path, errno);
    }
    if (const int error = writeAndSync(calls, file.number(), bytes); error != 0)
        fail("Cannot write", path, error);
    if (calls.nameFile(file.number(), path) != 0) {
        if (errno == ENOENT || errno == EPERM || errno == EOPNOTSUPP) // no /proc, or no links here
            return Outcome::notSupported;
        fail("Cannot write", path, errno);
    }
    return Outcome::done;
}

/// A file under a name of its own, renamed once it is whole.
void writeAndRename(FileCalls& calls, const std::string& path, std::string_view bytes)
{
    const std::string temporary = pathIn(folderOf(path), ".corvane-" + randomIdentifiers()().digits());
    int error = 0;
    {
        const OpenFile file(calls, temporary, O_WRONLY | O_CREAT | O_EXCL);
        if (!file.isOpen())
            fail("Cannot write", path, errno);
        error = writeAndSync(calls, file.number(), bytes);
    }
    if (error == 0 && calls.renameToNew(temporary, path) != 0)
        error = errno;
    if (error != 0) {
        calls.unlink(temporary);
        fail("Cannot write", path, error);
    }
}

} // namespace

int FileCalls::open(const std::string& path, int flags)
{
    return ::open(path.c_str(), flags, newFileMode); // NOLINT(cppcoreguidelines-pro-type-vararg)
}

std::ptrdiff_t FileCalls::write(int file, const char* bytes, std::size_t count)
{
    return ::write(file, bytes, count);
}

int FileCalls::sync(int file)
{
    return ::fsync(file);
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
    // Network file systems know no such rename, but links, which never replace.
    if (::link(from.c_str(), to.c_str()) != 0)
        return -1;
    ::unlink(from.c_str());
    return 0;
}

int FileCalls::unlink(const std::string& path)
{
    return ::unlink(path.c_str());
}

FileCalls& FileCalls::system()
{
    static FileCalls calls;
    return calls;
}

std::string readFile(const std::string& path)
{
    FileCalls& calls = FileCalls::system();
    const OpenFile file(calls, path, O_RDONLY);
    if (!file.isOpen())
        fail("Cannot read", path, errno);
    std::string bytes;
    struct stat facts{};
    if (::fstat(file.number(), &facts) == 0 && S_ISREG(facts.st_mode))
        bytes.reserve(static_cast<std::size_t>(facts.st_size) + 1);
    std::size_t length = 0;
    for (;;) {
        constexpr std::size_t atLeast = std::size_t{1} << 16;
        bytes.resize(std::max(bytes.capacity(), length + atLeast));
        const ssize_t some = ::read(file.number(), bytes.data() + length, bytes.size() - length);
        if (some < 0 && errno == EINTR)
            continue;
        if (some < 0)
            fail("Cannot read", path, errno);
        if (some == 0)
            break;
        length += static_cast<std::size_t>(some);
    }
    bytes.resize(length);
    return bytes;
}

bool somethingNamed(const std::string& path)
{
    struct stat facts{};
    return ::lstat(path.c_str(), &facts) == 0;
}

std::size_t longestNameIn(const std::string& folder)
{
    constexpr std::size_t usual = 255;
    const long limit = ::pathconf(folder.c_str(), _PC_NAME_MAX);
    return limit > 0 ? static_cast<std::size_t>(limit) : usual;
}

void writeNewFile(const std::string& path, std::string_view bytes, FileCalls& calls)
{
    if (writeNameless(calls, path, bytes) == Outcome::notSupported)
        writeAndRename(calls, path, bytes);
    if (const int error = syncFolder(calls, folderOf(path)); error != 0) {
        calls.unlink(path);
        fail("Cannot write", path, error);
    }
}

std::string pathIn(const std::string& folder, std::string_view name)
{
    std::string path = folder;
    if (path.empty() || path.back() != '/')
        path += '/';
    return path.append(name);
}

std::string_view lastComponent(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

} // namespace corvane
