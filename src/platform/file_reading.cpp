#include "base/error.h"
#include "platform/file_errors.h"
#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <stdexcept>

namespace corvane {

namespace {

constexpr std::string_view cannotRead = "Cannot read";

/// A file that stays open for reading until the end of the scope.
class ReadableFile {
public:
    /// Opening neither waits for a pipe's writer nor makes a terminal the controlling one.
    explicit ReadableFile(const std::string& path)
        : file_(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) // NOLINT(*-vararg)
    {
    }
    ReadableFile(const ReadableFile&) = delete;
    ReadableFile& operator=(const ReadableFile&) = delete;
    ~ReadableFile()
    {
        if (isOpen())
            ::close(file_);
    }

    [[nodiscard]] bool isOpen() const { return file_ >= 0; }
    [[nodiscard]] int number() const { return file_; }

private:
    int file_;
};

void refuseUnlessFile(const std::string& path, const struct stat& facts)
{
    if (const auto reason = specialFile(facts.st_mode))
        refuseFile(cannotRead, path, *reason);
    if (!S_ISREG(facts.st_mode))
        refuseFile(cannotRead, path, EISDIR);
}

/// Returns 0 or the error. Reads up to `bytes.size()` bytes, and shortens `bytes` to what there was.
int readInto(int file, std::string& bytes)
{
    std::size_t length = 0;
    while (length < bytes.size()) {
        const ssize_t some = ::read(file, bytes.data() + length, bytes.size() - length);
        if (some < 0 && errno == EINTR)
            continue;
        if (some < 0)
            return errno;
        if (some == 0)
            break; // the file has become shorter meanwhile
        length += static_cast<std::size_t>(some);
    }
    bytes.resize(length);
    return 0;
}

} // namespace

std::string readFile(const std::string& path, std::uint64_t most)
{
    struct stat facts{};
    if (::stat(path.c_str(), &facts) == 0)
        refuseUnlessFile(path, facts); // before opening it, because merely opening a device can have effects
    const ReadableFile file(path);
    if (!file.isOpen() || ::fstat(file.number(), &facts) != 0) {
        const int error = errno;
        if (const auto reason = brokenLink(path))
            refuseFile(cannotRead, path, *reason);
        refuseFile(cannotRead, path, error);
    }
    refuseUnlessFile(path, facts); // again, because it may have been replaced meanwhile
    const auto size = static_cast<std::uint64_t>(facts.st_size);
    if (size > most)
        refuseFile(cannotRead, path, "it is larger than " + std::to_string(most >> 20U) + " MB, which is the limit");
    std::string bytes;
    int error = 0;
    try {
        bytes.resize(size);
        error = readInto(file.number(), bytes);
    } catch (const std::bad_alloc&) { // for the user, a file too large for the memory cannot be read
        error = ENOMEM;
    } catch (const std::length_error&) {
        error = ENOMEM;
    }
    if (error != 0)
        refuseFile(cannotRead, path, error);
    return bytes;
}

} // namespace corvane
