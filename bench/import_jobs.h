#pragma once

#include "bench/measurements.h"
#include "bench/target_table.h"

#include <vector>

namespace corvane::bench {

/// Measures importing (summary and engine together) documents of 1, 10 and 100 MB against a bare parse of the same
/// bytes, each in fresh processes and repeatedly in this process.
void registerImportJobs();

[[nodiscard]] std::vector<TargetRow> importTargets(const Measurements& measurements);

} // namespace corvane::bench
