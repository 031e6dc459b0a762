#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <cstdint>

namespace corvane::bench {

/// A project without a document: all that generation and the reports on it look at.
struct NumberProject {
    ImportedProject imported;
    CutEngine engine;
    EditSettings settings;
};

/// Sixteen angles at 25 frames a second, each with thirty stretches an hour whose gaps fall at different times, one of
/// them with sound throughout; bookends, a fixed section every hour, weights and return times. The settings make
/// about five hundred cuts an hour.
[[nodiscard]] NumberProject numberProject(std::int64_t hours);

} // namespace corvane::bench
