#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>
#include <iostream>
#include <stdexcept>

namespace corvane::test {

/// Runs the work in a child process, which can be killed and can have limits and a user of its own. The child exits
/// with 0, or with 1 if the work throws.
[[nodiscard]] inline pid_t startChild(const std::function<void()>& work)
{
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("no process can be started");
    if (child != 0)
        return child;
    try {
        work();
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        ::_exit(1);
    }
    ::_exit(0);
}

/// Waits for the child to end, and returns the status from waitpid.
inline int statusOf(pid_t child)
{
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}

} // namespace corvane::test
