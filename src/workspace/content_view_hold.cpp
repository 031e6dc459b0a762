#include "base/error.h"
#include "workspace/content_view.h"
#include "workspace/held_shots.h"

#include <ranges>
#include <utility>

namespace corvane {

void ContentView::hold(const std::vector<std::size_t>& chosen)
{
    if (notifying_) {
        waitingEdits_.emplace_back([this, chosen](WorkspaceState&) { hold(chosen); });
        return;
    }
    edit([this, &chosen](WorkspaceState& state) {
        if (!state.loaded)
            return;
        const CutEngine& engine = state.loaded->engine;
        const std::vector<Cut> shots = shotsToHold(engine, state.settings, state.cuts(), chosen);
        if (shots.empty())
            return;
        EditSettings held = state.settings;
        const auto failure =
            failureOf("make a rough edit", [&] { addHeldSections(engine, held, shots, services_.identifiers); });
        if (failure)
            fail(*failure);
        else
            generateInPlace("Hold", std::move(held));
    });
}

void ContentView::release(const std::vector<std::size_t>& chosen)
{
    if (notifying_) {
        waitingEdits_.emplace_back([this, chosen](WorkspaceState&) { release(chosen); });
        return;
    }
    edit([this, &chosen](WorkspaceState& state) {
        if (!state.loaded)
            return;
        EditSettings released = state.settings;
        const auto positions = sectionsToRelease(state.loaded->engine, released, state.cuts(), chosen);
        if (positions.empty())
            return;
        for (const std::size_t position : std::views::reverse(positions))
            released.sections.erase(released.sections.begin() + static_cast<std::ptrdiff_t>(position));
        generateInPlace("Release", std::move(released));
    });
}

/// The edit with these settings takes the place of the one on screen, as one step for Undo.
void ContentView::generateInPlace(std::string_view action, EditSettings settings)
{
    const Identifier before = state_.preview->id;
    if (generateWith(std::move(settings)))
        stepUpdate_ = UndoSteps::of(action, UndoStep::Edits{before, state_.preview->id});
}

} // namespace corvane
