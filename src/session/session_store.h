#pragma once

#include "platform/files.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

/// The most bytes that a session file may have.
constexpr std::uint64_t largestSession = std::uint64_t{512} << 20U;

/// The session file of this user account and what must not be lost beside it. A file that this store neither wrote
/// nor handed to the window last (it could not be restored, was never read, or another process replaced it), or that
/// holds what this program would not write, is copied aside before the first save over it. Of the copies that this
/// program can restore as a whole the ten latest stay; all others stay for ever.
class SessionStore {
public:
    /// `folder` gives the program's own folder and makes it; it fails with PlatformError where that cannot be.
    explicit SessionStore(std::function<std::string()> folder, FileCalls& calls = FileCalls::system());

    /// Path of "session-v1.json"; its folder is made. Fails with PlatformError.
    [[nodiscard]] std::string sessionFileURL() const;

    /// The stored file, none when there is none. Fails with PlatformError.
    [[nodiscard]] std::optional<std::string> read();
    /// What was read last is on screen now: saving may replace it.
    void accept() { own_ = read_; }
    /// The stored file holds what is nowhere else: saving copies it aside first.
    void disown() { own_.reset(); }

    /// Replaces the file by the parts. Fails with PlatformError, also for more than could be read again; the old file
    /// then stays.
    void write(std::span<const std::string_view> parts);

    /// The session that an import replaced, kept as "session-v1 (previous).json" in place of an earlier one.
    [[nodiscard]] std::string previousFileURL() const;
    void writePrevious(std::span<const std::string_view> parts); ///< fails as write() does
    /// Keeps the stored file itself, of which `bytes` were read, as the previous one.
    void keepAsPrevious(std::string_view bytes);
    /// The previous session, of which `bytes` were read, becomes the stored one, and the stored one the previous. At
    /// every moment both are in some file. Fails with PlatformError and has then changed neither.
    void changePlaces(std::string_view bytes);

private:
    /// As the function of that name; returns the path of what is kept.
    std::string keepStoredFile(const std::string& path);
    /// Takes away the oldest of more than ten copies that restore as a whole.
    void removeSurplusCopies(const std::string& path);

    std::function<std::string()> folder_;
    FileCalls& calls_;
    std::optional<FileStamp> read_;
    std::optional<FileStamp> own_;
    std::set<std::pair<std::string, FileStamp>> foreignCopies_; ///< those that this program cannot restore, by path
};

} // namespace corvane
