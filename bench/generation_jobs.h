#pragma once

#include "bench/measurements.h"
#include "bench/target_table.h"

#include <vector>

namespace corvane::bench {

/// Measures generating about 5,000, 10,000 and 20,000 cuts, and usage, gaps and warning for the smallest project.
void registerGenerationJobs();

[[nodiscard]] std::vector<TargetRow> generationTargets(const Measurements& measurements);

} // namespace corvane::bench
