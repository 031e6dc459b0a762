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

/// The calls through which bytes reach the disk, named after POSIX. Each returns what the system call returns, and sets
/// errno if it fails. Tests pass an implementation that fails at a chosen call.
class FileCalls {
public:
    FileCalls() = default;
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;
    virtual ~FileCalls() = default;

    /// Child processes do not inherit the file.
    virtual int open(const std::string& path, int flags);
    /// Opens a new, nameless file in the folder for writing. Fails with EOPNOTSUPP if the file system does not support
    /// that.
    virtual int openNameless(const std::string& folder);
    /// Writes the parts one after the other, or as much as the system accepts, in one call: a file that is written in
    /// many calls takes longer to sync.
    virtual std::ptrdiff_t write(int file, std::span<const std::string_view> parts);
    virtual int sync(int file);
    /// Gives the file the mode and group of another file, as far as the user is permitted to.
    virtual void takeRights(int file, const std::string& model);
    virtual int close(int file);
    /// Gives the nameless file the name `path`. Fails with EEXIST if the name is taken.
    virtual int nameFile(int file, const std::string& path);
    /// Renames without replacing. Fails with EEXIST if the new name is taken.
    virtual int renameToNew(const std::string& from, const std::string& to);
    /// Renames, replacing any file with the new name.
    virtual int renameOver(const std::string& from, const std::string& to);
    /// Exchanges the names of two files atomically. Fails with EINVAL or ENOSYS if that is not supported.
    virtual int exchange(const std::string& one, const std::string& other);
    virtual int unlink(const std::string& path);
    /// Creates a folder that only this user can enter. Fails with EEXIST if the name is taken.
    virtual int makeFolder(const std::string& path);

    /// The file system itself.
    [[nodiscard]] static FileCalls& system();
};

/// Makes a write beyond the process's file size limit fail instead of ending the process. Call this once, at the start
/// of the program; child processes are not affected.
void surviveFileSizeLimit();

/// The default limit of readFile, in bytes.
constexpr std::uint64_t largestFile = std::uint64_t{512} << 20U;

/// The whole file, as large as it is when it is opened. Links are followed. Only regular files of at most `most` bytes
/// are read, and the function never blocks: pipes, sockets and devices are refused without being opened. Throws
/// PlatformError, also if there is not enough memory.
[[nodiscard]] std::string readFile(const std::string& path, std::uint64_t most = largestFile);

/// True if a file, a folder or a link has this name, even a broken link.
[[nodiscard]] bool somethingNamed(const std::string& path);

/// The most bytes that a name in this folder may have.
[[nodiscard]] std::size_t longestNameIn(const std::string& folder);

/// Writes `bytes` to a new file, which gets its name only once every byte is on the disk. Never replaces anything:
/// throws PlatformError if the name is taken or the disk reports an error, and then leaves nothing behind.
void writeNewFile(const std::string& path, std::string_view bytes, FileCalls& calls = FileCalls::system());

/// Replaces or creates the file with the parts one after the other. Readers see either the complete old file or the
/// complete new one. The target of a link is replaced, and the link stays. The new file has the old one's mode and
/// group. Throws PlatformError, also for a broken link and for anything that is not a file; then the old file is
/// unchanged and no temporary file is left.
void replaceFile(
    const std::string& path, std::span<const std::string_view> parts, FileCalls& calls = FileCalls::system());

/// The names of everything in the folder, in no particular order; none if it cannot be read.
[[nodiscard]] std::vector<std::string> namesIn(const std::string& folder);

/// Removes the temporary files that replaceFile left in the folder when its process was killed on this machine.
void removeAbandonedFiles(const std::string& folder);

/// The final target of a link; the path itself for anything else, and for a broken link.
[[nodiscard]] std::string followedLinks(const std::string& path);

/// The folder that contains the path's last component.
[[nodiscard]] std::string folderOf(const std::string& path);

/// Identifies one state of a file: any write by anyone changes the stamp.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t node = 0;
    std::int64_t size = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;
    auto operator<=>(const FileStamp&) const = default;
};

/// None if there is no file. Links are followed.
[[nodiscard]] std::optional<FileStamp> stampOf(const std::string& path);

/// Creates the folder and its missing parents; an existing folder is left as it is. Throws PlatformError; folders that
/// were created before the failure remain.
void makeFolders(const std::string& path, FileCalls& calls = FileCalls::system());

/// The path of `name` in `folder`; an empty `folder` is the current one.
[[nodiscard]] std::string pathIn(const std::string& folder, std::string_view name);

/// The last component of a path.
[[nodiscard]] std::string_view lastComponent(std::string_view path);

} // namespace corvane
