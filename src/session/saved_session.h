#pragma once

#include "import/cut_engine.h"
#include "session/edit_history.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The contents of the session file: the project's document as it was imported, the settings on screen and all
/// revisions. Members may be added without a new version number; a program that does not know them reads the rest.
struct SavedEditSession {
    std::int64_t version = 1;
    std::string sourceXML;
    std::string encodedXML; ///< the same in Base64, as a save writes it again
    EditSettings settings;
    EditHistory history;
    bool holdsMore = false; ///< the file has members that this program does not know and would not write
};

/// Throws PlatformError if the bytes are not a session file.
[[nodiscard]] SavedEditSession decodeSession(std::string_view bytes);

/// True for a session file with at least one revision; false for anything else.
[[nodiscard]] bool holdsGeneratedEdits(std::string_view bytes);

/// True for a session file that this program could write again without losing data.
[[nodiscard]] bool isKnownThroughout(std::string_view bytes);

/// The same for a file without any revision.
[[nodiscard]] bool isKnownWithoutEdits(std::string_view bytes);

/// The same as isKnownThroughout for a file that can also be restored.
[[nodiscard]] bool restoresThroughout(std::string_view bytes);

/// Refuses a session of another version, with settings out of range, with cameras that its project does not have, or
/// with cut lists that do not cover the project without gaps and with footage.
void validateSession(const SavedEditSession& session, const CutEngine& engine);

/// Refuses settings that are out of range; all limits are inclusive.
void validateStoredSettings(const EditSettings& settings);

} // namespace corvane
