#include "session/session_store.h"

#include "base/error.h"
#include "platform/kept_files.h"
#include "session/saved_session.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

/// Whether the bytes of a file satisfy `is`; false also if it cannot be read.
bool storedFile(const std::string& path, const std::function<bool(std::string_view bytes)>& is)
{
    try {
        return is(readFile(path, largestSession));
    } catch (const PlatformError&) {
        return false;
    }
}

/// Whether the parts, one after the other, are these bytes.
bool areTheSame(std::string_view bytes, std::span<const std::string_view> parts)
{
    for (const std::string_view part : parts) {
        if (!bytes.starts_with(part))
            return false;
        bytes.remove_prefix(part.size());
    }
    return bytes.empty();
}

/// Whether replacing the previous session by the parts would lose edits, or something that this program cannot write.
bool losesWork(const std::string& path, std::span<const std::string_view> parts)
{
    return !storedFile(
        path, [&](std::string_view bytes) { return areTheSame(bytes, parts) || isKnownWithoutEdits(bytes); });
}

/// Replaces the file, of which keepAside has made this copy. If that fails, removes the copy where it is not needed and
/// throws.
void replaceKept(
    const std::string& path, const std::string& copy, std::span<const std::string_view> parts, FileCalls& calls)
{
    const auto before = stampOf(path); // none if it was renamed rather than copied
    try {
        replaceFile(path, parts, calls);
    } catch (...) {
        if (before && stampOf(path) == before) // otherwise the copy is all that is left
            calls.unlink(copy);
        else if (!somethingNamed(path))
            (void)calls.renameToNew(copy, path);
        throw;
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
    if (!stampOf(path) || !losesWork(path, parts))
        return replaceFile(path, parts, calls_);
    replaceKept(path, keepAside(path, largestSession, calls_), parts, calls_);
    removeSurplusCopies(path);
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
    replaceKept(path, copy, {&bytes, 1}, calls_);
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
