#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <cstdint>

namespace corvane::bench {

/// A project without a document: everything that generation and its reports need.
struct NumberProject {
    ImportedProject imported;
    CutEngine engine;
    EditSettings settings;
};

/// Sixteen angles at 25 frames per second, each with thirty ranges per hour and gaps at different times, one of them
/// with continuous audio; bookends, a fixed section every hour, weights and return times. The settings give about five
/// hundred cuts per hour.
[[nodiscard]] NumberProject numberProject(std::int64_t hours);

} // namespace corvane::bench
