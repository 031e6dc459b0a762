#pragma once

#include "platform/files.h"

#include <cerrno>
#include <string>
#include <vector>

namespace corvane::test {

/// The file system, but the call number `failing` (from 0) fails with `error`. A failing write may write a part first.
class FailingFiles : public FileCalls {
public:
    explicit FailingFiles(int failing, int error = EIO, bool nameless = true)
        : failing_(failing), error_(error), nameless_(nameless)
    {
    }

    [[nodiscard]] int calls() const { return calls_; }
    /// The names of all calls so far.
    [[nodiscard]] const std::vector<std::string>& log() const { return log_; }

    int open(const std::string& path, int flags) override
    {
        if (!nameless_ && log_.empty()) {
            errno = EOPNOTSUPP;
            log_.emplace_back("no nameless files");
            return -1;
        }
        return fails("open") ? -1 : FileCalls::open(path, flags);
    }
    std::ptrdiff_t write(int file, std::span<const std::string_view> parts) override
    {
        if (fails("write"))
            return -1;
        const std::string_view first = parts.front();
        const std::string_view some = first.substr(0, first.size() > 1 ? first.size() / 2 : 1);
        return FileCalls::write(file, {&some, 1}); // short writes are legal
    }
    int sync(int file) override { return fails("sync") ? -1 : FileCalls::sync(file); }
    int nameFile(int file, const std::string& path) override
    {
        return fails("name") ? -1 : FileCalls::nameFile(file, path);
    }
    int renameToNew(const std::string& from, const std::string& to) override
    {
        return fails("rename") ? -1 : FileCalls::renameToNew(from, to);
    }

private:
    bool fails(const char* call)
    {
        log_.emplace_back(call);
        errno = error_;
        return calls_++ == failing_;
    }

    int failing_;
    int error_;
    bool nameless_;
    int calls_ = 0;
    std::vector<std::string> log_;
};

} // namespace corvane::test
