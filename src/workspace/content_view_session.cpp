#include "base/error.h"
#include "import/project_loading.h"
#include "session/saved_session.h"
#include "workspace/content_view.h"

#include <utility>

namespace corvane {

namespace {

const std::string notRestored = "The previous session could not be restored. Its saved file has been kept. You can "
                                "import an XML to start a new session. ";

const std::string previousNotKept = "The previous session could not be kept: ";

std::string joined(const std::vector<std::string_view>& parts)
{
    std::string whole;
    for (const std::string_view part : parts)
        whole += part;
    return whole;
}

} // namespace

void ContentView::expectProject()
{
    edit([](WorkspaceState& state) { state.didRestore = true; });
}

void ContentView::windowAppeared()
{
    react(); // a project that arrived before the window has precedence over the stored session
    edit([this](WorkspaceState& state) {
        lookForPreviousSession();
        if (std::exchange(state.didRestore, true))
            return;
        restoreSession();
        if (!presets_.canBeRead())
            fail("Saved presets could not be read. Their stored data has been kept.");
    });
}

void ContentView::restoreSession()
{
    const auto failure = failureOf("restore the session", [&] {
        auto bytes = services_.sessions.read();
        if (!bytes)
            return;
        StoredSession session = readSession(std::move(*bytes));
        if (!session.holdsMore)
            services_.sessions.accept();
        show(std::move(session));
    });
    if (failure) {
        storedSessionRefused_ = true;
        fail(notRestored + *failure);
    }
}

ContentView::StoredSession ContentView::readSession(std::string bytes) const
{
    const auto sign = services_.busy("Restoring the session…");
    SavedEditSession session = decodeSession(std::exchange(bytes, {})); // which go before the project is read
    auto [imported, engine] = loadProject(session.sourceXML);
    validateSession(session, engine);
    const EditSettings& settings = session.settings;
    return {
        std::make_shared<LoadedDocument>(
            LoadedDocument{std::move(session.encodedXML), std::move(imported), std::move(engine)}),
        settings,
        std::move(session.history),
        session.holdsMore,
        settings,
        "Restored your last session from its saved XML snapshot. Import a fresh XML if the Final Cut project has "
        "changed."};
}

/// The files may already have been exchanged, so this must not fail.
void ContentView::show(StoredSession session) noexcept
{
    show(std::move(session.loaded));
    state_.history = std::move(session.history);
    state_.restoredSettings = std::move(session.restoredSettings);
    state_.settings = std::move(session.settings);
    const SharedRevision current = state_.history.currentRevision();
    state_.preview = current && current->settings == state_.settings ? current : nullptr;
    state_.status = std::move(session.status);
}

std::vector<std::string_view> ContentView::encodedSession()
{
    return encoder_.encode(state_.loaded->encodedXML, state_.settings, state_.history);
}

void ContentView::show(std::shared_ptr<const LoadedDocument> loaded) noexcept
{
    state_.loaded = std::move(loaded);
    state_.sourceFile.reset();
    if (std::holds_alternative<RemovedSection>(state_.undoable))
        state_.undoable = std::monostate();
}

/// Called before another project is shown: keeps a session with edits, whether on screen or only stored.
void ContentView::keepReplacedSession()
{
    const bool hasEdits = state_.loaded && !state_.history.items.empty();
    const auto failure = failureOf("write it", [&] {
        if (hasEdits) {
            services_.sessions.writePrevious(encodedSession());
        } else if (!state_.loaded && !storedSessionRefused_) {
            const auto bytes = services_.sessions.read();
            if (bytes && holdsGeneratedEdits(*bytes))
                services_.sessions.keepAsPrevious(*bytes);
        }
    });
    if (!failure)
        return;
    keepingFailed_ = previousNotKept + *failure;
    if (hasEdits && failureOf("write it", [&] { services_.sessions.write(encodedSession()); })) // then it is the disk
        unkeptSession_ = joined(encodedSession());
    services_.sessions.disown();
}

/// Tries again to keep the replaced session. Returns the message if that fails; none if nothing is left to keep.
std::optional<std::string> ContentView::keepUnkeptSession()
{
    if (!unkeptSession_)
        return std::nullopt;
    const auto failure = failureOf("write it", [&] {
        const std::string_view part = *unkeptSession_;
        services_.sessions.writePrevious({&part, 1});
        unkeptSession_.reset();
    });
    return failure ? std::optional(previousNotKept + *failure) : std::nullopt;
}

/// Not called at every change, because only imports and reopening create or remove a previous session.
void ContentView::lookForPreviousSession()
{
    state_.canReopen = false;
    (void)failureOf("look for it", [&] {
        state_.canReopen = unkeptSession_ || somethingNamed(services_.sessions.previousFilePath());
    });
}

void ContentView::reopenPreviousSession()
{
    edit([this](WorkspaceState& state) {
        bool isThere = false;
        const auto failure = failureOf("restore the session", [&] {
            isThere = unkeptSession_ || somethingNamed(services_.sessions.previousFilePath());
            if (!isThere)
                return;
            const std::string bytes =
                unkeptSession_ ? *unkeptSession_ : readFile(services_.sessions.previousFilePath(), largestSession);
            StoredSession session = readSession(bytes);
            if (state.loaded) {
                services_.sessions.write(encodedSession());
                services_.sessions.changePlaces(bytes);
            }
            unkeptSession_.reset();
            show(std::move(session));
        });
        if (failure) {
            fail(notRestored + *failure);
            return;
        }
        if (!isThere) {
            state.canReopen = false;
            fail("There is no previous project to reopen.");
            return;
        }
        lookForPreviousSession();
        state.chosenPreset.clear();
        state.presetNotice.clear();
        saveWanted_ = true;
    });
}

bool ContentView::holdsUnsaved() const
{
    const auto& failure = state_.sessionSaveError;
    return unkeptSession_ || (failure && failure->starts_with(sessionNotSaved));
}

void ContentView::saveAgain()
{
    edit([this](WorkspaceState&) { saveWanted_ = true; });
}

void ContentView::saveSession()
{
    if (!state_.loaded)
        return;
    const std::optional<std::string> notKept = std::exchange(keepingFailed_, std::nullopt);
    const auto failure = failureOf("save the session", [&] {
        services_.sessions.write(encodedSession());
        state_.sessionSaveError = notKept ? notKept : keepUnkeptSession();
    });
    if (failure)
        state_.sessionSaveError = std::string(sessionNotSaved) + *failure + (notKept ? " " + *notKept : "");
}

} // namespace corvane
