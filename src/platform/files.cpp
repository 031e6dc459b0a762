#include "platform/files.h"

#include "base/identifier.h"
#include "base/numbers.h"
#include "platform/file_errors.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <limits>
#include <memory>
#include <system_error>
#include <vector>

namespace corvane {

namespace {

constexpr std::string_view cannotWrite = "Cannot write";

bool isFolder(const std::string& path)
{
    struct stat facts{};
    return ::stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

/// Closes an open file at the end of the scope.
class OpenFile {
public:
    /// `file` is what the open call returned.
    OpenFile(FileCalls& calls, int file) : calls_(calls), file_(file) {}
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

/// Removes the bytes that were written from the start of `rest`.
void dropWritten(std::span<std::string_view>& rest, std::size_t written)
{
    while (!rest.empty() && written >= rest.front().size()) {
        written -= rest.front().size();
        rest = rest.subspan(1);
    }
    if (written > 0)
        rest.front().remove_prefix(written);
}

/// What to write, and the file whose mode and group to take; none for a new file.
struct Content {
    std::span<const std::string_view> parts;
    const std::string* model = nullptr;
};

/// Returns 0 or the error.
int writeAndSync(FileCalls& calls, int file, const Content& content)
{
    if (content.model != nullptr)
        calls.takeRights(file, *content.model); // before there is anything to read in it
    std::vector<std::string_view> all;
    std::ranges::remove_copy_if(content.parts, std::back_inserter(all), &std::string_view::empty);
    std::span<std::string_view> rest(all);
    while (!rest.empty()) {
        const std::ptrdiff_t written = calls.write(file, rest);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? errno : ENOSPC;
        dropWritten(rest, static_cast<std::size_t>(written));
    }
    return calls.sync(file) == 0 ? 0 : errno;
}

/// Returns 0 or the error. File systems that cannot sync a folder return EINVAL, which is not treated as an error.
int syncFolder(FileCalls& calls, const std::string& folder)
{
    const OpenFile file(calls, calls.open(folder, O_RDONLY | O_DIRECTORY));
    if (!file.isOpen())
        return errno;
    return calls.sync(file.number()) == 0 || errno == EINVAL ? 0 : errno;
}

/// True for errors that mean "this file system cannot do that" rather than "this failed".
bool isNotSupported(int error)
{
    return error == EOPNOTSUPP || error == EISDIR || error == EINVAL || error == ENOSYS || error == EPERM ||
           error == ENOENT;
}

constexpr std::string_view temporaryPrefix = ".corvane-";

/// A name that no other process or save uses. It contains the process id, which later tells whether the file was
/// abandoned.
std::string temporaryName(const std::string& path)
{
    return pathIn(
        folderOf(path),
        std::string(temporaryPrefix) + std::to_string(::getpid()) + "-" + randomIdentifiers()().digits());
}

/// The process id in a name from temporaryName; none for any other name.
std::optional<pid_t> savingProcess(std::string_view name)
{
    if (!name.starts_with(temporaryPrefix))
        return std::nullopt;
    name.remove_prefix(temporaryPrefix.size());
    const std::size_t dash = name.find('-');
    const auto process = readInteger(name.substr(0, dash));
    constexpr std::size_t digits = 32;
    const bool ours = dash != std::string_view::npos && name.size() - dash - 1 == digits &&
                      name.find_first_not_of("0123456789ABCDEF", dash + 1) == std::string_view::npos && process &&
                      *process > 0 && *process <= std::numeric_limits<pid_t>::max();
    return ours ? std::optional(static_cast<pid_t>(*process)) : std::nullopt;
}

/// Writes the parts to a nameless file, which gets the name `path` only when it is complete, so that even a killed
/// process leaves nothing behind. Returns 0 or the error; none if the file system does not support nameless files.
std::optional<int> writeNameless(FileCalls& calls, const std::string& path, const Content& content)
{
    const OpenFile file(calls, calls.openNameless(folderOf(path)));
    if (!file.isOpen())
        return isNotSupported(errno) ? std::nullopt : std::optional(errno);
    if (const int error = writeAndSync(calls, file.number(), content); error != 0)
        return error;
    if (calls.nameFile(file.number(), path) == 0)
        return 0;
    return isNotSupported(errno) ? std::nullopt : std::optional(errno);
}

/// Writes the parts to a new file of that name, and removes it if that fails. Returns 0 or the error.
int writeNamed(FileCalls& calls, const std::string& path, const Content& content)
{
    int error = 0;
    {
        const OpenFile file(calls, calls.open(path, O_WRONLY | O_CREAT | O_EXCL));
        if (!file.isOpen())
            return errno;
        error = writeAndSync(calls, file.number(), content);
    }
    if (error != 0)
        calls.unlink(path);
    return error;
}

/// Returns 0 or the error.
int writeWhole(FileCalls& calls, const std::string& path, const Content& content)
{
    if (const auto outcome = writeNameless(calls, path, content))
        return *outcome;
    const std::string temporary = temporaryName(path);
    int error = writeNamed(calls, temporary, content);
    if (error == 0 && calls.renameToNew(temporary, path) != 0) {
        error = errno;
        calls.unlink(temporary);
    }
    return error;
}

/// Renames the new file from `temporary` to `path`. The old file is kept until the folder is synced, so that a failure
/// can put it back. The caller passes `folder`, because computing it here could fail for lack of memory. Returns 0 or
/// the error.
int putInPlace(FileCalls& calls, const std::string& temporary, const std::string& path, const std::string& folder)
{
    // A folder is never exchanged: renaming over it fails instead.
    const bool exchanged = somethingNamed(path) && !isFolder(path) && calls.exchange(temporary, path) == 0;
    if (!exchanged && calls.renameOver(temporary, path) != 0) {
        const int error = errno;
        calls.unlink(temporary);
        return error;
    }
    const int error = syncFolder(calls, folder);
    if (error != 0 && exchanged)
        calls.exchange(temporary, path);
    if (exchanged)
        calls.unlink(temporary);
    return error;
}

} // namespace

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
    const std::string folder = folderOf(path);
    int error = writeWhole(calls, path, {{&bytes, 1}});
    if (error == 0) {
        error = syncFolder(calls, folder);
        if (error != 0)
            calls.unlink(path);
    }
    if (error != 0)
        refuseFile(cannotWrite, path, error);
}

void replaceFile(const std::string& path, std::span<const std::string_view> parts, FileCalls& calls)
{
    if (const auto reason = brokenLink(path))
        refuseFile(cannotWrite, path, *reason);
    struct stat facts{};
    if (const auto reason = ::stat(path.c_str(), &facts) == 0 ? specialFile(facts.st_mode) : std::nullopt)
        refuseFile(cannotWrite, path, *reason);
    const std::string target = followedLinks(path);
    const std::string folder = folderOf(target);
    const std::string temporary = temporaryName(target);
    int error = writeWhole(calls, temporary, {parts, &target});
    if (error == 0)
        error = putInPlace(calls, temporary, target, folder);
    if (error != 0)
        refuseFile(cannotWrite, path, error);
}

/// Uses readdir, because the standard library's iterator ends the program if memory runs out.
std::vector<std::string> namesIn(const std::string& folder)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(::opendir(folder.c_str()), ::closedir);
    while (const dirent* entry = opened ? ::readdir(opened.get()) : nullptr) { // NOLINT(concurrency-mt-unsafe)
        const std::string_view name = static_cast<const char*>(entry->d_name);
        if (name != "." && name != "..")
            names.emplace_back(name);
    }
    return names;
}

void removeAbandonedFiles(const std::string& folder)
{
    for (const std::string& name : namesIn(folder)) {
        const auto process = savingProcess(name);
        const std::string path = pathIn(folder, name);
        struct stat facts{};
        if (process && ::lstat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) && ::kill(*process, 0) != 0 &&
            errno == ESRCH)
            ::unlink(path.c_str()); // a file that cannot be removed stays
    }
}

std::optional<FileStamp> stampOf(const std::string& path)
{
    struct stat facts{};
    if (::stat(path.c_str(), &facts) != 0)
        return std::nullopt;
    return FileStamp{facts.st_dev, facts.st_ino, facts.st_size, facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec};
}

void makeFolders(const std::string& path, FileCalls& calls)
{
    std::size_t end = 0;
    do {
        end = std::min(path.find('/', end + 1), path.size());
        const std::string folder = path.substr(0, end);
        if (isFolder(folder) || calls.makeFolder(folder) == 0)
            continue;
        const int error = errno;
        if (error == EEXIST && isFolder(folder)) // another process has created it meanwhile
            continue;
        if (const auto reason = brokenLink(folder))
            refuseFile("Cannot make", folder, *reason);
        refuseFile("Cannot make", folder, error);
    } while (end < path.size());
}

std::string followedLinks(const std::string& path)
{
    std::error_code none;
    if (!std::filesystem::is_symlink(path, none))
        return path;
    const std::filesystem::path target = std::filesystem::canonical(path, none);
    return none ? path : target.native();
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string pathIn(const std::string& folder, std::string_view name)
{
    std::string path = folder;
    if (!path.empty() && path.back() != '/')
        path += '/';
    return path.append(name);
}

std::string_view lastComponent(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

} // namespace corvane
