#pragma once

#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <string>
#include <vector>

namespace corvane {

/// A sentence for each thing in the multicam that is allowed but hardly meant: angles that hold the same recording at
/// the same time, and picture effects of the multicam clip that sit on one of its video angles only.
[[nodiscard]] std::vector<std::string> oddities(const ImportedProject& project, const CutEngine& engine);

} // namespace corvane
