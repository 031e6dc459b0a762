#include "desktop/start_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace corvane {

namespace {

int openLockFile(const std::string& path)
{
    constexpr mode_t ownersOnly = 0600;
    return ::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, ownersOnly); // NOLINT(*-vararg)
}

/// False if the file has been removed or replaced since it was opened.
bool isStillThere(int file, const std::string& path)
{
    struct stat opened{};
    struct stat named{};
    return ::fstat(file, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

} // namespace

StartLock::StartLock(std::string path) : path_(std::move(path)) {}

StartLock::~StartLock()
{
    if (file_ < 0)
        return;
    if (isStillThere(file_, path_))
        ::unlink(path_.c_str());
    ::close(file_);
}

StartLock::Attempt StartLock::tryToHold()
{
    constexpr int enough = 100; // for processes that happen to end during this start
    for (int round = 0; round < enough; ++round) {
        int file = openLockFile(path_);
        // A file that cannot be opened, such as another user's file or a link, was not created by this program.
        if (file < 0 && ::unlink(path_.c_str()) == 0)
            file = openLockFile(path_);
        if (file < 0)
            return Attempt::impossible;
        if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
            const bool another = errno == EWOULDBLOCK;
            ::close(file);
            return another ? Attempt::heldByAnother : Attempt::impossible;
        }
        if (isStillThere(file, path_)) {
            file_ = file;
            return Attempt::held;
        }
        ::close(file);
    }
    return Attempt::impossible;
}

} // namespace corvane
