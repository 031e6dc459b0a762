#include "base/text.h"
#include "workspace/content_view.h"

#include <algorithm>
#include <exception>

namespace corvane {

namespace {

/// Names and coverage of an empty window.
const LoadedDocument& nothingLoaded()
{
    static const LoadedDocument nothing;
    return nothing;
}

} // namespace

std::vector<EditPreset> ContentView::storedPresets() const
{
    try {
        return decodePresets(services_.defaults.value(presetsKey));
    } catch (const std::exception&) {
        return {};
    }
}

bool ContentView::presetsCanBeRead() const
{
    try {
        (void)decodePresets(services_.defaults.value(presetsKey));
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

std::optional<EditPreset> ContentView::chosenPresetRecord() const
{
    for (const EditPreset& preset : storedPresets()) {
        if (preset.id.text() == state_.chosenPreset)
            return preset;
    }
    return std::nullopt;
}

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
        try {
            std::vector<EditPreset> presets = decodePresetsOrCloseSheet();
            const auto chosen = chosenPresetRecord();
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
        } catch (const std::exception& failure) {
            fail(failure.what());
        }
    });
}

std::vector<EditPreset> ContentView::decodePresetsOrCloseSheet()
{
    try {
        return decodePresets(services_.defaults.value(presetsKey));
    } catch (...) {
        state_.showSavePreset = false;
        throw;
    }
}

/// Sorts and stores the list, once it has been read back without a complaint; otherwise the old one stays. What a newer
/// version has stored is kept aside first.
void ContentView::storePresets(std::vector<EditPreset> presets)
{
    sortPresets(presets);
    const std::string bytes = encodePresets(presets);
    (void)decodePresets(bytes);
    if (presetsHoldMore(services_.defaults.value(presetsKey)))
        (void)services_.defaults.keepAside(presetsKey);
    services_.defaults.setValue(presetsKey, bytes);
    ++state_.storedPresets;
}

void ContentView::applyPreset(const EditPreset& preset)
{
    edit([this, preset](WorkspaceState& state) {
        const LoadedDocument& loaded = state.loaded ? *state.loaded : nothingLoaded();
        AppliedPreset applied = appliedPreset(preset, loaded.imported, loaded.engine, state.settings);
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
        const auto chosen = chosenPresetRecord();
        if (!chosen)
            return;
        try {
            std::vector<EditPreset> presets = decodePresets(services_.defaults.value(presetsKey));
            std::erase_if(presets, [&](const EditPreset& other) { return other.id == chosen->id; });
            storePresets(std::move(presets));
            state.chosenPreset.clear();
            state.undoable = *chosen;
            state.presetNotice = "Deleted " + chosen->name + ". Your current editing settings are unchanged.";
        } catch (const std::exception& failure) {
            fail(failure.what());
        }
    });
}

void ContentView::startNewPresetList()
{
    edit([this](WorkspaceState& state) {
        ++state.storedPresets; // whatever is there now is shown
        if (presetsCanBeRead())
            return;
        try {
            const std::string kept = services_.defaults.keepAside(presetsKey);
            services_.defaults.setValue(presetsKey, encodePresets({}));
            state.chosenPreset.clear();
            state.presetNotice = "Started a new list. The old one has been kept in the file " + kept + ".";
        } catch (const std::exception& failure) {
            fail(failure.what());
        }
    });
}

} // namespace corvane
