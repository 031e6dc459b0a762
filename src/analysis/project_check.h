#pragma once

#include "analysis/usable_ranges.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// What can be said of a project before anything is cut: what of it can be cut, what an export will refuse, what it
/// needs, and what is odd.
struct ProjectCheck {
    std::optional<UsableRanges> usable;
    std::vector<OtherAudio> otherAudio; ///< looked at only where not the whole project is usable
    std::vector<std::string> refusals;
    std::vector<std::string> advice;
    std::vector<std::string> oddities;
};
[[nodiscard]] ProjectCheck checkProject(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    std::string_view decimalSign = ".");

/// What of the check is to be done or known: each refusal, advice and oddity, in this order.
[[nodiscard]] std::vector<std::string> checkNotes(const ProjectCheck& check);

/// All of it as text, lines ending in a line feed; empty when there is nothing to say.
[[nodiscard]] std::string checkText(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, const ProjectCheck& check);

} // namespace corvane
