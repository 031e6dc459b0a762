#pragma once

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>
#include <string>

namespace corvane::test {

/// Which files of a folder are opened, by whomever. Those of folders inside it are not seen.
class OpenedFiles {
public:
    explicit OpenedFiles(const std::string& folder) : events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        if (::inotify_add_watch(events_, folder.c_str(), IN_OPEN) < 0)
            throw std::runtime_error("the folder cannot be watched");
    }
    OpenedFiles(const OpenedFiles&) = delete;
    OpenedFiles& operator=(const OpenedFiles&) = delete;
    ~OpenedFiles() { ::close(events_); }

    /// Their names so far.
    [[nodiscard]] std::string names() const
    {
        std::string opened;
        std::array<char, 1 << 16> bytes{};
        inotify_event event{};
        const ssize_t size = ::read(events_, bytes.data(), bytes.size());
        for (ssize_t at = 0; at < size; at += static_cast<ssize_t>(sizeof event + event.len)) {
            std::memcpy(&event, &bytes[static_cast<std::size_t>(at)], sizeof event);
            if ((event.mask & IN_ISDIR) == 0 && event.len > 0)
                opened += std::string(&bytes[static_cast<std::size_t>(at) + sizeof event]) + " ";
        }
        return opened;
    }

private:
    int events_;
};

} // namespace corvane::test
