#pragma once

#include <string>

namespace corvane {

/// The lock that the running program holds on a file of the user's. The system releases it when the process ends,
/// however it ends. The file's contents do not matter, nor does the process or host that wrote it.
class StartLock {
public:
    /// `path` is the lock file, whose folder must exist.
    explicit StartLock(std::string path);
    StartLock(const StartLock&) = delete;
    StartLock& operator=(const StartLock&) = delete;
    /// Releases the lock and removes its file.
    ~StartLock();

    enum class Attempt {
        held,          ///< this process holds it from now on
        heldByAnother, ///< another running process holds it
        impossible,    ///< the file cannot be created
    };
    [[nodiscard]] Attempt tryToHold();

private:
    std::string path_;
    int file_ = -1;
};

} // namespace corvane
