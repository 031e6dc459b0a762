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

/// The largest session file, in bytes.
constexpr std::uint64_t largestSession = std::uint64_t{512} << 20U;

/// The user's session file, and the files beside it that must not be lost. A file is copied aside before the first save
/// over it if this store neither wrote it nor passed it to the window (because it could not be restored, was never
/// read, or another process replaced it), or if it contains data that this program would not write. The previous
/// session is copied aside before another one takes its place if it has edits, or contains such data. Of the copies of
/// each file that this program can restore completely the latest ten are kept; all others are kept forever.
class SessionStore {
public:
    /// `folder` creates the program's own folder and returns its path, or throws PlatformError.
    explicit SessionStore(std::function<std::string()> folder, FileCalls& calls = FileCalls::system());

    /// The path of "session-v1.json", whose folder is created. Throws PlatformError.
    [[nodiscard]] std::string sessionFileURL() const;

    /// The bytes of the stored file, if there is one. Throws PlatformError.
    [[nodiscard]] std::optional<std::string> read();
    /// Call this when the session that was last read is on screen: from then on, saving may replace it.
    void accept() { own_ = read_; }
    /// Call this if the stored file contains the only copy of something: saving then copies it aside first.
    void disown() { own_.reset(); }

    /// Replaces the file with the parts. Throws PlatformError, also if the file would be too large to be read back;
    /// then the old file stays.
    void write(std::span<const std::string_view> parts);

    /// The path of the session that an import replaced last, "session-v1 (previous).json".
    [[nodiscard]] std::string previousFilePath() const;
    /// Fails like write(), also if the session in this file has edits and cannot be copied aside.
    void writePrevious(std::span<const std::string_view> parts);
    /// Keeps the stored file, from which `bytes` were read, as the previous session.
    void keepAsPrevious(std::string_view bytes);
    /// Exchanges the previous session, from which `bytes` were read, and the stored one. At every moment each of them
    /// is in some file. Throws PlatformError, and then has changed neither.
    void changePlaces(std::string_view bytes);

private:
    /// Calls the function keepAside and returns the path of the copy.
    std::string keepStoredFile(const std::string& path);
    /// If more than ten copies can be restored completely, removes the oldest of them.
    void removeSurplusCopies(const std::string& path);

    std::function<std::string()> folder_;
    FileCalls& calls_;
    std::optional<FileStamp> read_;
    std::optional<FileStamp> own_;
    std::set<std::pair<std::string, FileStamp>> foreignCopies_; ///< copies that this program cannot restore, by path
};

} // namespace corvane
