#include "workspace/undo_steps.h"

#include <iterator>
#include <utility>

namespace corvane {

UndoSteps::Update UndoSteps::of(std::string_view name, decltype(UndoStep::what) what)
{
    const auto* settings = std::get_if<UndoStep::Settings>(&what);
    const std::size_t bytes = settings == nullptr ? sizeof(UndoStep) : settings->change.bytes();
    Update update;
    update.step.push_back({name, std::move(what), bytes});
    return update;
}

UndoSteps::Update UndoSteps::ofSettings(
    std::string_view name, const EditSettings& before, const EditSettings& after, bool isOpen) const
{
    const auto* last = done_.empty() ? nullptr : std::get_if<UndoStep::Settings>(&done_.back().what);
    const bool continues = isOpen && last != nullptr && done_.back().isOpen && done_.back().name == name;
    Update update;
    if (continues) {
        EditSettings first = before;
        last->change.put(first, UndoStep::Side::before);
        SettingsChange change(first, after);
        if (!change.isEmpty())
            update = of(name, UndoStep::Settings{std::move(change), std::nullopt});
    } else {
        update = of(name, UndoStep::Settings{SettingsChange(before, after), std::nullopt});
    }
    update.replacesLast = continues;
    for (UndoStep& step : update.step)
        step.isOpen = isOpen;
    return update;
}

void UndoSteps::commit(Update update) noexcept
{
    if (update.forgetsProject) {
        for (auto* steps : {&done_, &undone_})
            std::erase_if(*steps, [](const UndoStep& step) {
                return !std::holds_alternative<UndoStep::DeletedPreset>(step.what);
            });
    }
    if (update.moved) {
        auto& from = *update.moved == UndoStep::Side::before ? done_ : undone_;
        auto& to = *update.moved == UndoStep::Side::before ? undone_ : done_;
        for (; update.movedSteps > 0; --update.movedSteps)
            to.splice(to.end(), from, std::prev(from.end()));
        close();
    }
    if (update.replacesLast)
        done_.pop_back();
    if (update.step.empty())
        return;
    undone_.clear();
    done_.splice(done_.end(), update.step);
    std::size_t bytes = 0;
    for (const UndoStep& step : done_)
        bytes += step.bytes;
    for (; done_.size() > 1 && (done_.size() > mostSteps || bytes > mostBytes); done_.pop_front())
        bytes -= done_.front().bytes;
}

void UndoSteps::close() noexcept
{
    if (!done_.empty())
        done_.back().isOpen = false;
}

} // namespace corvane
