#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>
#include <iostream>
#include <stdexcept>

namespace corvane::test {

/// Does the work in a process of its own, which may be killed and whose limits and user are its own too. It ends with
/// 0, or with 1 when the work throws.
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

/// Waits for its end; the status of waitpid.
inline int statusOf(pid_t child)
{
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}

} // namespace corvane::test
