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

/// What is known about a project before it is cut: which ranges can be cut, what an export will refuse, what it needs,
/// and what looks odd.
struct ProjectCheck {
    std::optional<UsableRanges> usable;
    std::vector<OtherAudio> otherAudio; ///< filled only if part of the project is not usable
    std::vector<std::string> refusals;
    std::vector<std::string> advice;
    std::vector<std::string> oddities;
};
[[nodiscard]] ProjectCheck checkProject(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    std::string_view decimalSign = ".");

/// The notes of the check: refusals, advice and oddities, in this order.
[[nodiscard]] std::vector<std::string> checkNotes(const ProjectCheck& check);

/// The whole check as text, with a line feed after each line: what can be cut, and the notes. Empty only if it is
/// unknown what can be cut and there are no notes.
[[nodiscard]] std::string checkText(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, const ProjectCheck& check);

} // namespace corvane
