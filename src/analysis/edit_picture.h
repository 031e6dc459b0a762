#pragma once

#include "import/cut_engine.h"
#include "import/imported_project.h"
#include "session/edit_history.h"

#include <string>
#include <string_view>

namespace corvane {

/// An edit as one page for people without Corvane: one lane per camera with its footage, the fixed shots, each camera's
/// share beside its target, each shot with its reasons, and the settings. HTML with an embedded drawing; it runs no
/// scripts and loads nothing, and names are escaped.
[[nodiscard]] std::string editPicture(
    const ImportedProject& project, const CutEngine& engine, const EditRevision& revision,
    std::string_view decimalSign = ".");

} // namespace corvane
