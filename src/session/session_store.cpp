#include "session/session_store.h"

#include "base/error.h"
#include "platform/kept_files.h"
#include "session/saved_session.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

/// Whether the bytes of a file satisfy `is`; false also if it cannot be read.
bool storedFile(const std::string& path, bool (*is)(std::string_view bytes))
{
    try {
        return is(readFile(path, largestSession));
    } catch (const PlatformError&) {
        return false;
    }
}

/// Refuses to write a file that would be too large to be read back, so that the previous one stays.
void refuseUnreadable(const std::string& path, std::span<const std::string_view> parts)
{
    std::uint64_t size = 0;
    for (const std::string_view part : parts)
        size += part.size();
    if (size > largestSession)
        throw PlatformError(
            "Cannot write " + std::string(lastComponent(path)) + ": it would be larger than " +
            std::to_string(largestSession >> 20U) + " MB, which is the most that can be read back.");
}

} // namespace

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
    read_ = stampOf(path);
    if (!somethingNamed(path))
        return std::nullopt;
    return readFile(path, largestSession);
}

void SessionStore::write(std::span<const std::string_view> parts)
{
    const std::string path = sessionFileURL();
    refuseUnreadable(path, parts);
    const auto stored = stampOf(path);
    if (stored && stored != own_)
        keepStoredFile(path);
    replaceFile(path, parts, calls_);
    own_ = stampOf(path);
}

std::string SessionStore::previousFilePath() const
{
    return pathIn(folder_(), "session-v1 (previous).json");
}

void SessionStore::writePrevious(std::span<const std::string_view> parts)
{
    const std::string path = previousFilePath();
    refuseUnreadable(path, parts);
    if (stampOf(path) && !storedFile(path, isKnownThroughout))
        (void)keepAside(path, largestSession, calls_);
    replaceFile(path, parts, calls_);
}

void SessionStore::keepAsPrevious(std::string_view bytes)
{
    writePrevious({&bytes, 1});
    own_ = isKnownThroughout(bytes) ? read_ : std::nullopt;
}

void SessionStore::changePlaces(std::string_view bytes)
{
    const std::string path = sessionFileURL();
    const std::string previous = previousFilePath();
    const std::string copy = keepAside(path, largestSession, calls_);
    try {
        replaceFile(path, {&bytes, 1}, calls_);
    } catch (...) {
        if (somethingNamed(path))
            calls_.unlink(copy);
        else
            (void)calls_.renameToNew(copy, path); // renames it back if it was renamed rather than copied
        throw;
    }
    own_ = isKnownThroughout(bytes) ? stampOf(path) : std::nullopt;
    if (followedLinks(previous) == previous) {
        (void)calls_.renameOver(copy, previous); // if this fails, the copy stays where it is
        return;
    }
    try {
        const std::string replaced = readFile(copy, largestSession);
        const std::string_view part = replaced;
        replaceFile(previous, {&part, 1}, calls_); // because it may be on another disk
        calls_.unlink(copy);
    } catch (const PlatformError&) { // NOLINT(bugprone-empty-catch)
        // The copy stays where it is.
    }
}

std::string SessionStore::keepStoredFile(const std::string& path)
{
    std::string kept = keepAside(path, largestSession, calls_);
    own_ = stampOf(path);
    removeSurplusCopies(path);
    return kept;
}

void SessionStore::removeSurplusCopies(const std::string& path)
{
    constexpr std::size_t most = 10;
    std::vector<std::string> restoring; // as far as is known: a copy is read only if it may be removed
    for (const std::string& name : keptBeside(path)) {
        if (const auto stamp = stampOf(name); stamp && !foreignCopies_.contains({name, *stamp}))
            restoring.push_back(name);
    }
    for (std::size_t n = 0; n + most < restoring.size();) {
        const std::string& oldest = restoring[n];
        const auto stamp = stampOf(oldest);
        if (!stamp || storedFile(oldest, restoresThroughout)) {
            calls_.unlink(oldest);
            ++n;
        } else {
            foreignCopies_.emplace(oldest, *stamp);
            restoring.erase(restoring.begin() + static_cast<std::ptrdiff_t>(n));
        }
    }
}

} // namespace corvane
