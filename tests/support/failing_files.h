#pragma once

#include "platform/files.h"

#include <cerrno>
#include <string>

namespace corvane::test {

/// The file system, except that the call with the index `failing` (none if negative) fails with `error`. Writes are
/// partial, as the system allows; a failing write first writes a part.
struct FailingFiles : FileCalls {
    explicit FailingFiles(int failingCall = -1, int withError = ENOSPC) : failing(failingCall), error(withError) {}

    int failing;
    int error;
    bool nameless = true; ///< nameless files are supported
    bool full = false;    ///< every call fails
    int calls = 0;

    int open(const std::string& path, int flags) override { return fails() ? -1 : FileCalls::open(path, flags); }
    int openNameless(const std::string& folder) override
    {
        errno = EOPNOTSUPP;
        return nameless ? FileCalls::openNameless(folder) : -1;
    }
    std::ptrdiff_t write(int file, std::span<const std::string_view> parts) override
    {
        const bool fault = fails();
        const std::string_view first = parts.front();
        const std::size_t most = parts.size() == 1 && first.size() > 1 ? first.size() - 1 : first.size();
        const std::string_view some = first.substr(0, fault ? first.size() / 2 : most);
        const std::ptrdiff_t written = FileCalls::write(file, {&some, 1});
        errno = error;
        return fault ? -1 : written;
    }
    int sync(int file) override { return fails() ? -1 : FileCalls::sync(file); }
    int nameFile(int file, const std::string& path) override { return fails() ? -1 : FileCalls::nameFile(file, path); }
    int renameToNew(const std::string& from, const std::string& to) override
    {
        return fails() ? -1 : FileCalls::renameToNew(from, to);
    }
    int renameOver(const std::string& from, const std::string& to) override
    {
        return fails() ? -1 : FileCalls::renameOver(from, to);
    }
    int makeFolder(const std::string& path) override { return fails() ? -1 : FileCalls::makeFolder(path); }

private:
    bool fails()
    {
        errno = error;
        return calls++ == failing || full;
    }
};

} // namespace corvane::test
