#include "base/error.h"
#include "workspace/content_view.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvane {

namespace {

/// The edit that a step shows; none if it only changes settings or presets.
std::optional<Identifier> editOf(const UndoStep& step, UndoStep::Side side)
{
    if (const auto* edits = std::get_if<UndoStep::Edits>(&step.what))
        return side == UndoStep::Side::before ? edits->before : edits->after;
    const auto* settings = std::get_if<UndoStep::Settings>(&step.what);
    return settings != nullptr && side == UndoStep::Side::after ? settings->restored : std::nullopt;
}

/// None if it is no longer in the list.
std::optional<std::int64_t> positionOf(const Identifier& edit, const EditHistory& history)
{
    const auto found =
        std::ranges::find(history.items, edit, [](const SharedRevision& revision) { return revision->id; });
    return found == history.items.end() ? std::nullopt : std::optional<std::int64_t>(found - history.items.begin());
}

} // namespace

void ContentView::beginAction() noexcept
{
    endAction();
    actionIsOpen_ = true;
}

void ContentView::endAction() noexcept
{
    steps_.close();
    actionIsOpen_ = false;
}

void ContentView::undo()
{
    takeStep(UndoStep::Side::before);
}

void ContentView::redo()
{
    takeStep(UndoStep::Side::after);
}

std::optional<ContentView::NextStep> ContentView::nextStep(UndoStep::Side side) const
{
    const std::size_t count = stepsToTake(side);
    if (count == 0)
        return std::nullopt;
    const UndoStep& step = *std::prev(steps_.steps(side).end(), static_cast<std::ptrdiff_t>(count));
    const auto edit = editOf(step, side);
    const bool isGone = edit && !positionOf(*edit, state_.history);
    return NextStep{
        step.name, isGone ? std::optional<std::string>("The edit to return to has been replaced.") : std::nullopt};
}

/// True if the step would change nothing, because a restored edit or another window has done so.
bool ContentView::isTaken(const UndoStep& step, UndoStep::Side side) const
{
    if (const auto edit = editOf(step, side))
        return state_.preview && state_.preview->id == *edit;
    if (const auto* settings = std::get_if<UndoStep::Settings>(&step.what))
        return settings->change.isPut(state_.settings, side);
    const auto& deleted = std::get<UndoStep::DeletedPreset>(step.what);
    return presets_.preset(deleted.preset.id.text()).has_value() == (side == UndoStep::Side::before);
}

/// The next one that would change something, and those before it; 0 if there is none.
std::size_t ContentView::stepsToTake(UndoStep::Side side) const
{
    const auto& steps = steps_.steps(side);
    std::size_t count = 1;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step, ++count) {
        if (!isTaken(*step, side))
            return count;
    }
    return 0;
}

void ContentView::takeStep(UndoStep::Side side)
{
    edit([this, side](WorkspaceState&) {
        const std::size_t count = stepsToTake(side);
        if (count == 0)
            return;
        if (!take(*std::prev(steps_.steps(side).end(), static_cast<std::ptrdiff_t>(count)), side))
            return;
        stepUpdate_.emplace();
        stepUpdate_->moved = side;
        stepUpdate_->movedSteps = count;
    });
}

/// False if nothing was changed, because that is not possible.
bool ContentView::take(const UndoStep& step, UndoStep::Side side)
{
    if (const auto edit = editOf(step, side)) {
        const auto position = positionOf(*edit, state_.history);
        if (position)
            restoreRevision(*position);
        return position.has_value();
    }
    if (const auto* settings = std::get_if<UndoStep::Settings>(&step.what)) {
        settings->change.put(state_.settings, side);
        state_.preview.reset();
        state_.presetNotice.clear();
        return true;
    }
    const auto& deleted = std::get<UndoStep::DeletedPreset>(step.what);
    return side == UndoStep::Side::before ? bringBack(deleted.preset) : deleteAgain(deleted.preset);
}

/// Stores the preset again. If that fails, it can be tried again.
bool ContentView::bringBack(const EditPreset& deleted)
{
    bool isBack = false;
    const auto failure = failureOf("change the presets", [&] {
        std::vector<EditPreset> presets = currentPresets();
        if (std::ranges::any_of(presets, [&](const EditPreset& other) { return sameName(other.name, deleted.name); })) {
            fail("A preset with that name already exists. Choose it and use Update, or save with another name.");
            return;
        }
        presets.push_back(deleted);
        storePresets(std::move(presets));
        state_.chosenPreset = deleted.id.text();
        state_.presetNotice = "Saved " + deleted.name + ".";
        isBack = true;
    });
    if (failure)
        fail(*failure);
    return isBack;
}

bool ContentView::deleteAgain(const EditPreset& preset)
{
    state_.chosenPreset = preset.id.text();
    deletePreset();
    return !presets_.preset(preset.id.text());
}

} // namespace corvane
