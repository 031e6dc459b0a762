#pragma once

#include "import/cut_engine.h"
#include "session/edit_history.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// What the session file holds: the project's document as it was imported, the settings on screen and all revisions.
/// Files of one version may grow members; who does not know them reads the rest.
struct SavedEditSession {
    std::int64_t version = 1;
    std::string sourceXML;
    EditSettings settings;
    EditHistory history;
    bool holdsMore = false; ///< there were members that this program does not know, and would not write
};

/// Fails with PlatformError where the bytes are no session file, whatever they say.
[[nodiscard]] SavedEditSession decodeSession(std::string bytes);

/// True for a session file with at least one revision; false also for what is no session file.
[[nodiscard]] bool holdsGeneratedEdits(std::string_view bytes);

/// True for a session file of which this program, when it writes it again, leaves nothing out.
[[nodiscard]] bool isKnownThroughout(std::string_view bytes);

/// The same for one that can be restored, too.
[[nodiscard]] bool restoresThroughout(std::string_view bytes);

/// Refuses a session of another version, with settings out of range, with cameras that its project does not have, or
/// with cut lists that do not tile the project with footage.
void validateSession(const SavedEditSession& session, const CutEngine& engine);

/// Refuses settings out of range; every bound is inclusive.
void validateStoredSettings(const EditSettings& settings);

} // namespace corvane
