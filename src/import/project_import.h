#pragma once

#include "import/imported_project.h"
#include "import/project_outline.h"
#include "import/visit_budget.h"

#include <string_view>

namespace corvane {

/// Reads an export of one project with one multicam clip and refuses everything else, with a sentence that tells
/// what to export instead. Bytes that are no XML fail with the parser's own PlatformError.
[[nodiscard]] ImportedProject importProject(std::string_view bytes);
[[nodiscard]] ImportedProject importProject(const xml::Document& document);
/// `budget` is left for the other walk over the same document.
[[nodiscard]] ImportedProject importProject(const ProjectOutline& outline, VisitBudget& budget);

/// True for the mc-source that supplies sound: its "srcEnable" is "all" (also when absent) or "audio".
[[nodiscard]] bool suppliesAudio(xml::Element mcSource);

} // namespace corvane
