#pragma once

#include "import/imported_project.h"
#include "import/project_outline.h"
#include "import/visit_budget.h"

#include <string_view>

namespace corvane {

/// Reads an export of one project with one multicam clip. Refuses everything else with a sentence that says what to
/// export instead. For bytes that are not XML, throws the parser's PlatformError.
[[nodiscard]] ImportedProject importProject(std::string_view bytes);
[[nodiscard]] ImportedProject importProject(const xml::Document& document);
/// What is left of `budget` is for the other walk over the same document.
[[nodiscard]] ImportedProject importProject(const ProjectOutline& outline, VisitBudget& budget);

/// True for an mc-source that supplies audio: its "srcEnable" is "all" (the default) or "audio".
[[nodiscard]] bool suppliesAudio(xml::Element mcSource);

} // namespace corvane
