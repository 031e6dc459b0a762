#pragma once

#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <string>
#include <vector>

namespace corvane {

/// One sentence for each thing in the multicam that is allowed but probably not intended: angles with the same
/// recording at the same time, and video effects of the multicam clip on only one of its video angles.
[[nodiscard]] std::vector<std::string> oddities(const ImportedProject& project, const CutEngine& engine);

} // namespace corvane
