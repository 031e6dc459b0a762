#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The calls through which bytes reach the disk, named after POSIX; each returns what the system call returns, with
/// errno set on failure. Tests hand in one that fails at a chosen call.
class FileCalls {
public:
    FileCalls() = default;
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;
    virtual ~FileCalls() = default;

    /// Programs that this one starts do not get the file.
    virtual int open(const std::string& path, int flags);
    /// Opens a new file in the folder that has no name yet, for writing; fails with EOPNOTSUPP where there are none.
    virtual int openNameless(const std::string& folder);
    /// Writes the parts one after the other, or a beginning of them. In one call: a file that is written piece by piece
    /// takes longer to sync.
    virtual std::ptrdiff_t write(int file, std::span<const std::string_view> parts);
    virtual int sync(int file);
    /// Gives the file the mode and the group of another; what the user may not give stays as it is.
    virtual void takeRights(int file, const std::string& model);
    virtual int close(int file);
    /// Gives the nameless file the name `path`; fails with EEXIST where something has that name.
    virtual int nameFile(int file, const std::string& path);
    /// Renames; fails with EEXIST where something has the new name.
    virtual int renameToNew(const std::string& from, const std::string& to);
    /// Renames over whatever file has the new name.
    virtual int renameOver(const std::string& from, const std::string& to);
    /// Two files take each other's names in one step; fails with EINVAL or ENOSYS where that is not known.
    virtual int exchange(const std::string& one, const std::string& other);
    virtual int unlink(const std::string& path);
    /// Makes a folder that this user alone can enter; fails with EEXIST where something has that name.
    virtual int makeFolder(const std::string& path);

    /// The file system itself.
    [[nodiscard]] static FileCalls& system();
};

/// From now on a write beyond the process's limit for the size of files fails, instead of ending the process. To be
/// called once, at the start; programs that this one starts keep the usual way.
void surviveFileSizeLimit();

/// What readFile takes of a file whose kind has no limit of its own, in bytes.
constexpr std::uint64_t largestFile = std::uint64_t{512} << 20U;

/// The whole file as large as it is at the moment, a link's target for a link. Only a regular file of at most `most`
/// bytes is read, and nothing is ever waited for: pipes, sockets and devices are refused without being opened. Fails
/// with PlatformError, also when there is not enough memory.
[[nodiscard]] std::string readFile(const std::string& path, std::uint64_t most = largestFile);

/// True when a file, a folder or a link (also one that leads nowhere) has this name.
[[nodiscard]] bool somethingNamed(const std::string& path);

/// The most bytes that a name in this folder may have.
[[nodiscard]] std::size_t longestNameIn(const std::string& folder);

/// Writes `bytes` to a new file. The file has its name only once every byte is on the disk, and never replaces
/// anything: fails with PlatformError where the name is taken or the disk refuses, and then leaves nothing behind.
void writeNewFile(const std::string& path, std::string_view bytes, FileCalls& calls = FileCalls::system());

/// Replaces the file, or makes it, with the parts one after the other. A reader sees the old file or the new one,
/// whole. A link stays: the file that it leads to is replaced. The new file has the old one's mode and group. Fails
/// with PlatformError, also for a link to nothing and for what is no file, and then leaves the old file byte for byte
/// and nothing beside it.
void replaceFile(
    const std::string& path, std::span<const std::string_view> parts, FileCalls& calls = FileCalls::system());

/// Of what is in the folder, in no order; none when it cannot be looked into.
[[nodiscard]] std::vector<std::string> namesIn(const std::string& folder);

/// Takes away what replaceFile left in the folder when its process, one of this machine, was killed.
void removeAbandonedFiles(const std::string& folder);

/// Where a link leads in the end; the path itself for anything else, and for a link that leads to nothing.
[[nodiscard]] std::string followedLinks(const std::string& path);

/// The folder in which the path's last component stands.
[[nodiscard]] std::string folderOf(const std::string& path);

/// Tells one state of a file from every other: a write by anyone changes it.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t node = 0;
    std::int64_t size = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;
    auto operator<=>(const FileStamp&) const = default;
};

/// None when there is no file. A link counts as what it leads to.
[[nodiscard]] std::optional<FileStamp> stampOf(const std::string& path);

/// Makes the folder and those above it that are missing; a folder that is there stays as it is. Fails with
/// PlatformError; what was made before the failure stays.
void makeFolders(const std::string& path, FileCalls& calls = FileCalls::system());

/// The path of `name` inside `folder`; an empty one is the folder of the moment.
[[nodiscard]] std::string pathIn(const std::string& folder, std::string_view name);

/// The last component of a path.
[[nodiscard]] std::string_view lastComponent(std::string_view path);

} // namespace corvane
