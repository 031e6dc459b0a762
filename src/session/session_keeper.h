#pragma once

#include "import/cut_engine.h"
#include "import/imported_project.h"
#include "session/edit_history.h"
#include "session/session_encoding.h"
#include "session/session_store.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// A loaded project: its document exactly as it was read, in Base64 as sessions store it, and the results of the
/// import.
struct LoadedDocument {
    std::string encodedXML;
    ImportedProject imported;
    CutEngine engine;
};

/// The beginning of SessionKeeper::save's result while the session on screen is not saved.
constexpr std::string_view sessionNotSaved = "Session could not be saved: ";

/// Keeps the user's work: restores it at the start, saves it after each change, keeps it as the previous session when
/// another project replaces it, and reopens it. Holds the encoded parts, and whatever could not be written yet.
class SessionKeeper {
public:
    /// What is on screen.
    struct OnScreen {
        const LoadedDocument* loaded; ///< none in an empty window
        const EditSettings& settings;
        const EditHistory& history;
    };
    /// A session that was read and can be shown.
    struct Restored {
        std::shared_ptr<const LoadedDocument> loaded;
        EditSettings settings;
        EditHistory history;
    };
    struct Previous {
        std::string bytes;
        Restored session;
    };
    /// Called before a session is read. The result exists until that is finished.
    using Reading = std::function<std::shared_ptr<void>()>;

    explicit SessionKeeper(SessionStore& store, Reading reading = [] { return nullptr; });

    /// The stored session, if there is one. Throws Refusal; then later imports do not treat it as a session that they
    /// replace.
    [[nodiscard]] std::optional<Restored> restore();
    /// Saves what is on screen, which must include a project, and what could not be kept before. Returns none if
    /// everything is saved, otherwise the message: "Session could not be saved: …", "The previous session could not be
    /// kept: …", or both.
    [[nodiscard]] std::optional<std::string> save(const OnScreen& session);
    /// Call this before another project is shown: keeps a session with edits, whether on screen or only stored. The
    /// next save reports a failure.
    void keepReplaced(const OnScreen& session);

    /// True if there is a previous session. Throws Refusal if that cannot be determined.
    [[nodiscard]] bool hasPrevious() const;
    /// Reads the previous session, which must exist, without changing any file. Throws Refusal.
    [[nodiscard]] Previous readPrevious() const;
    /// Stores the session in these bytes, and makes the one on screen the previous one. In an empty window this touches
    /// no file: the next save stores the session, and the previous file stays. Throws Refusal, and then no files have
    /// been exchanged.
    void changePlaces(std::string_view previousBytes, const OnScreen& session);

    /// True while a replaced session with edits is not saved.
    [[nodiscard]] bool holdsUnkept() const { return unkept_.has_value(); }

private:
    [[nodiscard]] Restored read(std::string bytes, bool& isWhole) const;
    [[nodiscard]] std::vector<std::string_view> encoded(const OnScreen& session);
    [[nodiscard]] std::optional<std::string> keepUnkept();

    SessionStore& store_;
    Reading reading_;
    SessionEncoder encoder_;
    bool storedRefused_ = false;               ///< the stored file could not be restored
    std::optional<std::string> unkept_;        ///< a replaced session with edits that could not be written to any file
    std::optional<std::string> keepingFailed_; ///< why a replaced session could not be kept, for the next save
};

} // namespace corvane
