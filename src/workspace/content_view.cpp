#include "workspace/content_view.h"

#include "analysis/names.h"
#include "base/error.h"
#include "engine/generation_inputs.h"
#include "platform/memory.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace corvane {

const std::vector<Cut>& WorkspaceState::cuts() const
{
    static const std::vector<Cut> none;
    return preview ? preview->cuts : none;
}

namespace {

/// Keeps a minimum at or below its maximum: the bound that was just changed stays, and the other follows it.
void coupleBounds(double& minimum, double& maximum, double minimumBefore)
{
    if (minimum <= maximum)
        return;
    if (minimum != minimumBefore)
        maximum = minimum;
    else
        minimum = maximum;
}

} // namespace

ContentView::ContentView(WorkspaceServicesInUse services)
    : services_(std::move(services)),
      presets_(services_.defaults),
      keeper_(services_.sessions, [this] { return services_.busy("Restoring the session…"); }),
      inboxSubscription_(services_.inbox.observe([this] { react(); }))
{
}

void ContentView::edit(const std::function<void(WorkspaceState&)>& change)
{
    if (notifying_) {
        waitingEdits_.push_back(change);
        return;
    }
    if (editDepth_ > 0) {
        change(state_);
        return;
    }
    bool hasFreedProject = false;
    try {
        WorkspaceState before = state_;
        changeAndSave(change, before);
        notify(before);
        hasFreedProject = before.loaded && before.loaded != state_.loaded;
    } catch (const std::bad_alloc&) {
        const WorkspaceState before = state_;
        fail(notEnoughMemory("do this"));
        notify(before);
    }
    if (hasFreedProject)
        giveBackFreeMemory();
    while (!notifying_ && !waitingEdits_.empty()) {
        const auto next = std::move(waitingEdits_.front());
        waitingEdits_.pop_front();
        edit(next);
    }
}

/// Makes the whole change or none of it; undoing it never needs an allocation.
void ContentView::changeAndSave(const std::function<void(WorkspaceState&)>& change, WorkspaceState& before)
{
    ++editDepth_;
    UndoSteps::Update update;
    try {
        change(state_);
        const std::string_view setting = changedSetting(before.settings, state_.settings); // before others follow it
        settle(before);
        update = stepUpdate(before, setting);
        if (std::exchange(saveWanted_, false))
            saveSession();
    } catch (...) {
        state_ = std::move(before);
        saveWanted_ = false;
        endEdit();
        throw;
    }
    steps_.commit(std::move(update));
    endEdit();
}

void ContentView::endEdit() noexcept
{
    actionName_ = {};
    stepUpdate_.reset();
    --editDepth_;
}

UndoSteps::Update ContentView::stepUpdate(const WorkspaceState& before, std::string_view setting)
{
    if (stepUpdate_)
        return std::move(*stepUpdate_);
    if (state_.settings == before.settings)
        return {};
    const bool isOnItsOwn = !actionName_.empty();
    return steps_.ofSettings(
        isOnItsOwn ? actionName_ : setting, before.settings, state_.settings, actionIsOpen_ && !isOnItsOwn);
}

/// Updates everything that depends on the settings.
void ContentView::settle(const WorkspaceState& before)
{
    EditSettings& settings = state_.settings;
    coupleBounds(settings.mainMinimum, settings.mainMaximum, before.settings.mainMinimum);
    coupleBounds(settings.otherMinimum, settings.otherMaximum, before.settings.otherMinimum);
    if (settings != before.settings)
        settingsChanged(state_);
}

void ContentView::settingsChanged(WorkspaceState& state)
{
    saveWanted_ = true;
    const bool isTheRestore = state.restoredSettings == state.settings;
    state.restoredSettings.reset();
    if (isTheRestore)
        return;
    const SharedRevision current = state.history.currentRevision();
    if (!current || current->settings != state.settings)
        state.preview.reset();
    state.status.clear();
}

void ContentView::notify(const WorkspaceState& before)
{
    Changes changes;
    const auto mark = [&changes](Changed what, bool changed) { changes.set(static_cast<std::size_t>(what), changed); };
    mark(Changed::settings, state_.settings != before.settings);
    mark(Changed::loaded, state_.loaded != before.loaded);
    mark(Changed::history, state_.history != before.history);
    mark(Changed::cuts, state_.preview != before.preview);
    mark(Changed::alerts, state_.error != before.error || alerts_.size() != alertsNoticed_);
    mark(
        Changed::texts, state_.status != before.status || state_.sessionSaveError != before.sessionSaveError ||
                            state_.lastExport != before.lastExport || state_.canReopen != before.canReopen ||
                            state_.presetNotice != before.presetNotice);
    mark(
        Changed::presets, state_.chosenPreset != before.chosenPreset || state_.presetName != before.presetName ||
                              state_.storedPresets != before.storedPresets);
    mark(
        Changed::view, state_.showingHelp != before.showingHelp || state_.showingAbout != before.showingAbout ||
                           state_.dropTargeted != before.dropTargeted ||
                           state_.showSavePreset != before.showSavePreset);
    alertsNoticed_ = alerts_.size();
    if (changes.none())
        return;
    notifying_ = true;
    const std::unique_ptr<bool, void (*)(bool*)> whenDone(&notifying_, [](bool* notifying) { *notifying = false; });
    observers_.notify(changes);
}

void ContentView::fail(const std::string& message)
{
    state_.error = message;
    if (std::ranges::find(alerts_, message) != alerts_.end())
        return;
    constexpr std::size_t most = 20; // nobody reads more
    if (alerts_.size() < most) {
        alerts_.push_back(message);
        lastAlertStandsFor_ = 1;
    } else {
        ++lastAlertStandsFor_;
        alerts_.back() = std::to_string(lastAlertStandsFor_) + " more messages came. The last one: " + message;
    }
}

void ContentView::dismissError()
{
    edit([this](WorkspaceState& state) {
        state.error.reset();
        if (!alerts_.empty())
            alerts_.pop_front();
    });
}

void ContentView::selectMainCamera(const std::string& id)
{
    edit([this, id](WorkspaceState& state) {
        if (angleWithID(videoAngles(), state.settings.mainCamera) != nullptr)
            state.settings.otherCameras.insert(state.settings.mainCamera);
        state.settings.otherCameras.erase(id);
        state.settings.mainCamera = id;
    });
}

void ContentView::setCameraIncluded(const std::string& id, Inclusion inclusion)
{
    edit([id, inclusion](WorkspaceState& state) {
        if (inclusion == Inclusion::included)
            state.settings.otherCameras.insert(id);
        else
            state.settings.otherCameras.erase(id);
    });
}

void ContentView::setBound(double EditSettings::* bound, double seconds)
{
    edit([bound, seconds](WorkspaceState& state) { state.settings.*bound = seconds; });
}

std::vector<ImportedAngle> ContentView::videoAngles() const
{
    return state_.loaded ? corvane::videoAngles(state_.loaded->imported, state_.loaded->engine)
                         : std::vector<ImportedAngle>();
}

std::vector<std::string> ContentView::includedOtherCameras() const
{
    return state_.loaded
               ? corvane::includedOtherCameras(state_.loaded->imported, state_.loaded->engine, state_.settings)
               : std::vector<std::string>();
}

std::string ContentView::angleLabel(std::string_view id) const
{
    return state_.loaded ? corvane::angleLabel(state_.loaded->imported, id) : std::string(id);
}

std::optional<bool> ContentView::settingsMatchRevision() const
{
    const SharedRevision current = state_.history.currentRevision();
    return current ? std::optional(current->settings == state_.settings) : std::nullopt;
}

} // namespace corvane
