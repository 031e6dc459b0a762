#include "base/error.h"
#include "engine/generation_inputs.h"
#include "workspace/content_view.h"

#include <utility>

namespace corvane {

void ContentView::generateRoughEdit()
{
    edit([this](WorkspaceState& state) {
        if (!state.loaded)
            return;
        if (generateWith(state.settings))
            steps_.close();
    });
}

/// Changes nothing and shows the reason if no edit can be generated with these settings.
bool ContentView::generateWith(EditSettings settings)
{
    std::vector<Cut> cuts;
    const auto failure = failureOf("make a rough edit", [&] {
        cuts = generateFromSettings(
            state_.loaded->imported, state_.loaded->engine, settings, {services_.randomNumbers, services_.identifiers});
    });
    if (failure) {
        fail(*failure);
        return false;
    }
    state_.settings = settings;
    state_.preview = std::make_shared<const EditRevision>(
        EditRevision{services_.identifiers(), services_.now(), std::move(settings), std::move(cuts)});
    state_.history.append(state_.preview);
    state_.status.clear();
    saveWanted_ = true;
    return true;
}

void ContentView::restoreRevision(std::int64_t position)
{
    edit([this, position](WorkspaceState& state) {
        if (!state.history.has(position))
            return;
        const bool hasChanges = !settingsMatchRevision().value_or(true);
        state.history.index = position;
        state.preview = state.history.currentRevision();
        stepUpdate_.emplace(); // none for an edit in place of an edit
        if (hasChanges && state.settings != state.preview->settings)
            stepUpdate_ = UndoSteps::of(
                actionName_.empty() ? "Restore Edit" : actionName_,
                UndoStep::Settings{SettingsChange(state.settings, state.preview->settings), state.preview->id});
        steps_.close();
        state.settings = state.preview->settings;
        state.chosenPreset.clear();
        state.presetNotice.clear();
        saveWanted_ = true;
    });
}

void ContentView::stepBack()
{
    edit([this](WorkspaceState& state) {
        actionName_ = "Back";
        // If a change of the settings has cleared the cut list, Back returns to the current edit itself.
        restoreRevision(state.cuts().empty() ? state.history.index : state.history.index - 1);
    });
}

void ContentView::stepForward()
{
    edit([this](WorkspaceState& state) {
        actionName_ = "Forward";
        restoreRevision(state.history.index + 1);
    });
}

} // namespace corvane
