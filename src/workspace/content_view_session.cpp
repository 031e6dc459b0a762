#include "base/error.h"
#include "workspace/content_view.h"

#include <utility>

namespace corvane {

namespace {

const std::string notRestored = "The previous session could not be restored. Its saved file has been kept. You can "
                                "import an XML to start a new session. ";

const std::string restoredStatus = "Restored your last session from its saved XML snapshot. Import a fresh XML if the "
                                   "Final Cut project has changed.";

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
        if (auto session = keeper_.restore())
            show(forScreen(std::move(*session)));
    });
    if (failure)
        fail(notRestored + *failure);
}

ContentView::StoredSession ContentView::forScreen(SessionKeeper::Restored session)
{
    EditSettings settings = session.settings;
    return {std::move(session), std::move(settings), restoredStatus};
}

/// The files may already have been exchanged, so this must not fail.
void ContentView::show(StoredSession&& stored) noexcept
{
    auto& [session, restoredSettings, status] = stored;
    show(std::move(session.loaded));
    state_.history = std::move(session.history);
    state_.restoredSettings = std::move(restoredSettings);
    state_.settings = std::move(session.settings);
    const SharedRevision current = state_.history.currentRevision();
    state_.preview = current && current->settings == state_.settings ? current : nullptr;
    state_.status = std::move(status);
}

void ContentView::show(std::shared_ptr<const LoadedDocument> loaded) noexcept
{
    state_.loaded = std::move(loaded);
    state_.sourceFile.reset();
    stepUpdate_.emplace().forgetsProject = true;
}

SessionKeeper::OnScreen ContentView::onScreen() const
{
    return {state_.loaded.get(), state_.settings, state_.history};
}

/// Not called at every change, because only imports and reopening create or remove a previous session.
void ContentView::lookForPreviousSession()
{
    state_.canReopen = false;
    (void)failureOf("look for it", [&] { state_.canReopen = keeper_.hasPrevious(); });
}

void ContentView::reopenPreviousSession()
{
    edit([this](WorkspaceState& state) {
        bool isThere = false;
        const auto failure = failureOf("restore the session", [&] {
            isThere = keeper_.hasPrevious();
            if (!isThere)
                return;
            SessionKeeper::Previous previous = keeper_.readPrevious();
            StoredSession session = forScreen(std::move(previous.session));
            keeper_.changePlaces(previous.bytes, onScreen());
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
    return keeper_.holdsUnkept() || (failure && failure->starts_with(sessionNotSaved));
}

void ContentView::saveAgain()
{
    edit([this](WorkspaceState&) { saveWanted_ = true; });
}

void ContentView::saveSession()
{
    if (state_.loaded)
        state_.sessionSaveError = keeper_.save(onScreen());
}

} // namespace corvane
