#pragma once

#include "base/identifier.h"
#include "session/presets.h"
#include "workspace/settings_change.h"

#include <cstddef>
#include <list>
#include <optional>
#include <string_view>
#include <variant>

namespace corvane {

/// One action of a person that can be undone and redone.
struct UndoStep {
    using Side = SettingsChange::Side; ///< before: what Undo brings back; after: what Redo does

    /// Settings were changed, or an edit was restored in place of changed settings.
    struct Settings {
        SettingsChange change;
        std::optional<Identifier> restored; ///< the edit
    };
    /// An edit was generated together with a change of its settings.
    struct Edits {
        Identifier before; ///< the edits that were on screen
        Identifier after;
    };
    struct DeletedPreset {
        EditPreset preset;
    };

    std::string_view name; ///< what follows "Undo", as in "Main Share"; a literal
    std::variant<Settings, Edits, DeletedPreset> what;
    std::size_t bytes = 0; ///< about how much memory it takes
    bool isOpen = false;   ///< further changes of the same setting still belong to it
};

/// The steps that can be undone and redone. The oldest are forgotten when there are too many or they take too much
/// memory. What can fail for want of memory is done by `of` and `ofSettings`; the functions that change the steps
/// cannot fail.
class UndoSteps {
public:
    static constexpr std::size_t mostSteps = 200;
    static constexpr std::size_t mostBytes = std::size_t{32} << 20U;

    /// What an operation does to the steps.
    struct Update {
        std::list<UndoStep> step;              ///< a new step, or none
        bool replacesLast = false;             ///< the step includes the last one; if there is none, the two cancel out
        std::optional<UndoStep::Side> moved{}; ///< this many of the next steps were undone or redone
        std::size_t movedSteps = 0;
        bool forgetsProject = false; ///< all steps but those of presets
    };
    [[nodiscard]] static Update of(std::string_view name, decltype(UndoStep::what) what);
    /// A change of settings. If `isOpen`, it continues the last step if that is open and has the same name.
    [[nodiscard]] Update ofSettings(
        std::string_view name, const EditSettings& before, const EditSettings& after, bool isOpen) const;

    void commit(Update update) noexcept;
    /// No further change belongs to the last step.
    void close() noexcept;

    /// The steps that can be undone (`before`) or redone (`after`); the last one is the next.
    [[nodiscard]] const std::list<UndoStep>& steps(UndoStep::Side side) const
    {
        return side == UndoStep::Side::before ? done_ : undone_;
    }

private:
    std::list<UndoStep> done_;
    std::list<UndoStep> undone_;
};

} // namespace corvane
