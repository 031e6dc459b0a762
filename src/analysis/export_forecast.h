#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// A sentence for each thing in the document that an export with this audio angle will refuse, whatever the cuts are,
/// with its place and what to do; in the order in which exports refuse them.
[[nodiscard]] std::vector<std::string> announcedRefusals(
    const ImportedProject& project, const CutEngine& engine, std::string_view audioAngle);

/// "A fade of 3 s on Choir needs an opening of at least 3 s.": whether an edit can be exported with it depends on the
/// cuts that are drawn. None where the opening or closing shot is long enough already.
[[nodiscard]] std::vector<std::string> fadeAdvice(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    std::string_view decimalSign = ".");

} // namespace corvane
