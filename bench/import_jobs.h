#pragma once

#include "bench/measurements.h"
#include "bench/target_table.h"

#include <vector>

namespace corvane::bench {

/// Import, summary and engine together, of documents of 1, 10 and 100 MB against one bare parse of the same bytes: each
/// in fresh processes, and again and again in this one.
void registerImportJobs();

[[nodiscard]] std::vector<TargetRow> importTargets(const Measurements& measurements);

} // namespace corvane::bench
