#include "base/error.h"
#include "base/text.h"
#include "workspace/content_view.h"

#include <algorithm>

namespace corvane {

namespace {

/// Stands for the document in an empty window: no names, no coverage.
const LoadedDocument& nothingLoaded()
{
    static const LoadedDocument nothing;
    return nothing;
}

} // namespace

void ContentView::beginSavePreset()
{
    edit([](WorkspaceState& state) {
        state.presetName.clear();
        state.showSavePreset = true;
    });
}

void ContentView::savePreset(PresetSave kind)
{
    edit([this, kind](WorkspaceState& state) {
        const auto failure = failureOf("change the presets", [&] {
            std::vector<EditPreset> presets = presetsOrCloseSheet();
            const auto chosen = chosenPreset();
            const bool update = kind == PresetSave::update;
            if (update && !chosen)
                return;
            const std::string name = update ? chosen->name : std::string(trimmed(state.presetName));
            if (name.empty())
                return;
            const Identifier id = update ? chosen->id : services_.identifiers();
            if (std::ranges::any_of(
                    presets, [&](const EditPreset& other) { return other.id != id && sameName(other.name, name); })) {
                state.showSavePreset = false;
                fail("A preset with that name already exists. Choose it and use Update, or save with another name.");
                return;
            }
            const LoadedDocument& loaded = state.loaded ? *state.loaded : nothingLoaded();
            std::erase_if(presets, [&](const EditPreset& other) { return other.id == id; });
            presets.push_back(makePreset(id, name, loaded.imported, loaded.engine, state.settings));
            storePresets(std::move(presets));
            state.chosenPreset = id.text();
            state.presetNotice = "Saved " + name + ".";
            state.showSavePreset = false;
        });
        if (failure)
            fail(*failure);
    });
}

std::vector<EditPreset> ContentView::presetsOrCloseSheet()
{
    try {
        return currentPresets();
    } catch (...) {
        state_.showSavePreset = false;
        throw;
    }
}

/// The stored presets; if another process has changed them, the picker shows that.
std::vector<EditPreset> ContentView::currentPresets()
{
    ++state_.storedPresets;
    return presets_.current();
}

void ContentView::storePresets(std::vector<EditPreset> presets)
{
    presets_.store(std::move(presets));
    ++state_.storedPresets;
}

void ContentView::applyPreset(const EditPreset& preset)
{
    edit([this, preset](WorkspaceState& state) {
        const LoadedDocument& loaded = state.loaded ? *state.loaded : nothingLoaded();
        AppliedPreset applied = appliedPreset(preset, loaded.imported, loaded.engine, state.settings);
        actionName_ = "Apply Preset";
        state.settings = std::move(applied.settings);
        state.presetNotice = std::move(applied.notice);
        state.preview.reset();
        state.status.clear();
        saveWanted_ = true;
    });
}

void ContentView::deletePreset()
{
    edit([this](WorkspaceState& state) {
        const auto chosen = chosenPreset();
        if (!chosen)
            return;
        const auto failure = failureOf("change the presets", [&] {
            std::vector<EditPreset> presets = currentPresets();
            std::erase_if(presets, [&](const EditPreset& other) { return other.id == chosen->id; });
            storePresets(std::move(presets));
            state.chosenPreset.clear();
            stepUpdate_ = UndoSteps::of("Delete Preset", UndoStep::DeletedPreset{*chosen});
            state.presetNotice = "Deleted " + chosen->name + ". Your current editing settings are unchanged.";
        });
        if (failure)
            fail(*failure);
    });
}

void ContentView::readPresets()
{
    edit([this](WorkspaceState& state) {
        presets_.read();
        ++state.storedPresets;
    });
}

void ContentView::startNewPresetList()
{
    edit([this](WorkspaceState& state) {
        readPresets();
        if (presets_.canBeRead())
            return;
        const auto failure = failureOf("change the presets", [&] {
            const std::string kept = presets_.startNew();
            state.chosenPreset.clear();
            state.presetNotice = "Started a new list. The old one has been kept in the file " + kept + ".";
        });
        if (failure)
            fail(*failure);
    });
}

} // namespace corvane
