#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

/// The calls through which bytes reach the disk, named after POSIX; each returns what the system call returns, with
/// errno set on failure. Tests hand in one that fails at a chosen call.
class FileCalls {
public:
    FileCalls() = default;
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;
    virtual ~FileCalls() = default;

    virtual int open(const std::string& path, int flags);
    virtual std::ptrdiff_t write(int file, const char* bytes, std::size_t count);
    virtual int sync(int file);
    virtual int close(int file);
    /// Gives the nameless file the name `path`; fails with EEXIST where something has that name.
    virtual int nameFile(int file, const std::string& path);
    /// Renames; fails with EEXIST where something has the new name.
    virtual int renameToNew(const std::string& from, const std::string& to);
    virtual int unlink(const std::string& path);

    /// The file system itself.
    [[nodiscard]] static FileCalls& system();
};

/// The whole file. Fails with PlatformError.
[[nodiscard]] std::string readFile(const std::string& path);

/// True when a file, a folder or a link (also one that leads nowhere) has this name.
[[nodiscard]] bool somethingNamed(const std::string& path);

/// The most bytes that a name in this folder may have.
[[nodiscard]] std::size_t longestNameIn(const std::string& folder);

/// Writes `bytes` to a new file. The file has its name only once every byte is on the disk, and never replaces
/// anything: fails with PlatformError where the name is taken or the disk refuses, and then leaves nothing behind.
void writeNewFile(const std::string& path, std::string_view bytes, FileCalls& calls = FileCalls::system());

/// The path of `name` inside `folder`.
[[nodiscard]] std::string pathIn(const std::string& folder, std::string_view name);

/// The last component of a path.
[[nodiscard]] std::string_view lastComponent(std::string_view path);

} // namespace corvane
