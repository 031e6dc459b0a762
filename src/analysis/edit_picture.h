#pragma once

#include "import/cut_engine.h"
#include "import/imported_project.h"
#include "session/edit_history.h"

#include <string>
#include <string_view>

namespace corvane {

/// An edit as one page for people who have no Corvane: its cameras' lanes over their footage, what was asked for, the
/// share of each camera beside its target, each shot with its reasons, and the settings. HTML with the drawing inside;
/// it runs nothing and loads nothing, and names stand in it as text.
[[nodiscard]] std::string editPicture(
    const ImportedProject& project, const CutEngine& engine, const EditRevision& revision,
    std::string_view decimalSign = ".");

} // namespace corvane
