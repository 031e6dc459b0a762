#pragma once

#include <string>

namespace corvane {

/// The lock that the running program holds in a file of the user's. The system keeps it and takes it back when the
/// process ends, however it ends: what stands in the file, who wrote it and on which host tells nothing.
class StartLock {
public:
    /// `path` is that of the file; its folder is there.
    explicit StartLock(std::string path);
    StartLock(const StartLock&) = delete;
    StartLock& operator=(const StartLock&) = delete;
    /// Gives the lock back and takes its file away.
    ~StartLock();

    enum class Attempt {
        held,          ///< from now on by this process
        heldByAnother, ///< by a process that lives
        impossible,    ///< there can be no such file
    };
    [[nodiscard]] Attempt tryToHold();

private:
    std::string path_;
    int file_ = -1;
};

} // namespace corvane
