#include "session/session_store.h"

#include "platform/error.h"

#include <filesystem>
#include <utility>

namespace corvane {

SessionStore::SessionStore(std::function<std::string()> folder, FileCalls& calls)
    : folder_(std::move(folder)), calls_(calls)
{
}

std::string SessionStore::sessionFileURL() const
{
    return pathIn(folder_(), "session-v1.json");
}

std::optional<std::string> SessionStore::read()
{
    const std::string path = sessionFileURL();
    removeAbandonedFiles(folder_());
    if (const std::string target = followedLinks(path); target != path)
        removeAbandonedFiles(folderOf(target));
    read_ = stampOf(path);
    if (!somethingNamed(path))
        return std::nullopt;
    return readFile(path, largestSession);
}

void SessionStore::write(std::span<const std::string_view> parts)
{
    std::uint64_t size = 0;
    for (const std::string_view part : parts)
        size += part.size();
    if (size > largestSession)
        throw PlatformError(
            "Cannot write session-v1.json: it would be larger than " + std::to_string(largestSession >> 20U) +
            " MB, which is the most that can be read again.");
    const std::string path = sessionFileURL();
    const auto stored = stampOf(path);
    if (stored && stored != own_)
        keepAside(path);
    replaceFile(path, parts, calls_);
    own_ = stampOf(path);
}

std::string SessionStore::previousFileURL() const
{
    return pathIn(folder_(), "session-v1 (previous).json");
}

void SessionStore::writePrevious(std::span<const std::string_view> parts)
{
    replaceFile(previousFileURL(), parts, calls_);
}

void SessionStore::keepAsPrevious(std::string_view bytes)
{
    writePrevious({&bytes, 1});
    own_ = read_;
}

void SessionStore::changePlaces(std::string_view bytes)
{
    const std::string path = sessionFileURL();
    const std::string previous = previousFileURL();
    const std::string copy = keepAside(path);
    try {
        replaceFile(path, {&bytes, 1}, calls_);
    } catch (...) {
        if (somethingNamed(path))
            calls_.unlink(copy);
        else
            (void)calls_.renameToNew(copy, path); // it was renamed, not copied
        throw;
    }
    own_ = stampOf(path);
    (void)calls_.renameOver(copy, previous); // or the copy stays where it is
}

std::string SessionStore::freeName() const
{
    for (int n = 1;; ++n) {
        const std::string number = n == 1 ? "" : " " + std::to_string(n);
        std::string name = pathIn(folder_(), "session-v1 (kept" + number + ").json");
        if (!somethingNamed(name))
            return name;
    }
}

std::string SessionStore::keepAside(const std::string& path)
{
    std::string kept = freeName();
    std::string bytes;
    try {
        bytes = readFile(path, largestSession);
    } catch (const PlatformError&) {
        // It cannot be copied, but it can take another name. A folder is nobody's session and stays, as does a link.
        if (std::filesystem::is_directory(path) || std::filesystem::is_symlink(path) ||
            calls_.renameToNew(path, kept) != 0)
            throw;
        return kept;
    }
    writeNewFile(kept, bytes, calls_);
    own_ = stampOf(path);
    return kept;
}

} // namespace corvane
