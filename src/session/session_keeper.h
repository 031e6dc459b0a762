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

/// A loaded project: its document exactly as it was read, in Base64 as sessions hold it, and what the import made of
/// it.
struct LoadedDocument {
    std::string encodedXML;
    ImportedProject imported;
    CutEngine engine;
};

/// How the result of SessionKeeper::save begins while what is on screen is in no file.
constexpr std::string_view sessionNotSaved = "Session could not be saved: ";

/// Keeps what a person works on: restored at the start, saved after each change, kept as the previous session when
/// another project takes its place, and reopened. It has the encoded forms, and whatever could not be written yet.
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
    /// Called before a session is read; what it gives lives until that is done.
    using Reading = std::function<std::shared_ptr<void>()>;

    explicit SessionKeeper(SessionStore& store, Reading reading = [] { return nullptr; });

    /// The stored session; none when there is none. Fails with Refusal, and later imports then take it for nothing that
    /// they replace.
    [[nodiscard]] std::optional<Restored> restore();
    /// Saves what is on screen, which must have a project, and what could not be kept before. None when all is in
    /// files, else what to say about it: "Session could not be saved: …", "The previous session could not be kept: …",
    /// or both.
    [[nodiscard]] std::optional<std::string> save(const OnScreen& session);
    /// To be called before another project takes the place: generated edits, on screen or only stored, are kept. What
    /// fails is told by the next save.
    void keepReplaced(const OnScreen& session);

    /// Whether there is a previous session. Fails with Refusal where that cannot be told.
    [[nodiscard]] bool hasPrevious() const;
    /// The previous session, which must be there: read, and no file has changed. Fails with Refusal.
    [[nodiscard]] Previous readPrevious() const;
    /// The session of these bytes becomes the stored one, and what is on screen the previous one. Fails with Refusal,
    /// and then no file has changed places.
    void changePlaces(std::string_view previousBytes, const OnScreen& session);

    /// True while a session with edits that was replaced is in no file.
    [[nodiscard]] bool holdsUnkept() const { return unkept_.has_value(); }

private:
    [[nodiscard]] Restored read(std::string bytes, bool& isWhole) const;
    [[nodiscard]] std::vector<std::string_view> encoded(const OnScreen& session);
    [[nodiscard]] std::optional<std::string> keepUnkept();

    SessionStore& store_;
    Reading reading_;
    SessionEncoder encoder_;
    bool storedRefused_ = false;        ///< the stored file could not be restored
    std::optional<std::string> unkept_; ///< with edits, replaced while no file could be written: it is nowhere else
    std::optional<std::string> keepingFailed_; ///< why a replaced session could not be kept, for the next save
};

} // namespace corvane
