#pragma once

#include "bench/measurements.h"
#include "bench/target_table.h"

#include <vector>

namespace corvane::bench {

/// Measures saving after a change of a setting against a bare write of the same bytes, restoring, and the memory of a
/// history. The files are in the build folder, so its disk is measured.
void registerSessionJobs();

[[nodiscard]] std::vector<TargetRow> sessionTargets(const Measurements& measurements);

} // namespace corvane::bench
