#pragma once

#include "import/cut_engine.h"
#include "import/imported_project.h"
#include "session/edit_history.h"

#include <string>

namespace corvane {

/// How an edit was made, as plain text for people: the project, every setting, each camera's screen time and the whole
/// cut list. Lines end in a line feed; numbers have a decimal point whatever the locale.
[[nodiscard]] std::string settingsRecordText(
    const ImportedProject& project, const CutEngine& engine, const EditRevision& revision);

/// The same text without usage and cuts.
[[nodiscard]] std::string settingsHeadText(
    const ImportedProject& project, const CutEngine& engine, const EditRevision& revision);

} // namespace corvane
