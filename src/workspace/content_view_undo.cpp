#include "base/error.h"
#include "workspace/content_view.h"

#include <algorithm>
#include <utility>

namespace corvane {

void ContentView::undo()
{
    edit([this](WorkspaceState& state) {
        const Undoable undoable = std::exchange(state.undoable, std::monostate());
        if (const auto* section = std::get_if<RemovedSection>(&undoable))
            bringBack(*section);
        else if (const auto* preset = std::get_if<EditPreset>(&undoable))
            bringBack(*preset);
    });
}

/// Inserts the section at its old place, or at the end if the list has become shorter, unless a revision has already
/// brought it back.
void ContentView::bringBack(const RemovedSection& removed)
{
    auto& sections = state_.settings.sections;
    if (std::ranges::find(sections, removed.section.id, &SectionDraft::id) != sections.end())
        return;
    const std::size_t position = std::min(removed.position, sections.size());
    sections.insert(sections.begin() + static_cast<std::ptrdiff_t>(position), removed.section);
}

/// Stores the preset again. If that fails, it can be tried again.
void ContentView::bringBack(const EditPreset& deleted)
{
    const auto failure = failureOf("change the presets", [&] {
        std::vector<EditPreset> presets = currentPresets();
        if (std::ranges::any_of(presets, [&](const EditPreset& other) { return sameName(other.name, deleted.name); })) {
            fail("A preset with that name already exists. Choose it and use Update, or save with another name.");
            state_.undoable = deleted;
            return;
        }
        presets.push_back(deleted);
        storePresets(std::move(presets));
        state_.chosenPreset = deleted.id.text();
        state_.presetNotice = "Saved " + deleted.name + ".";
    });
    if (!failure)
        return;
    fail(*failure);
    state_.undoable = deleted;
}

} // namespace corvane
