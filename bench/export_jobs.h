#pragma once

#include "bench/measurements.h"
#include "bench/target_table.h"

#include <vector>

namespace corvane::bench {

/// Export of 5,000, 10,000 and 20,000 clips against serialising the finished document alone.
void registerExportJobs();

[[nodiscard]] std::vector<TargetRow> exportTargets(const Measurements& measurements);

} // namespace corvane::bench
