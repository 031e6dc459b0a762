#pragma once

#include "bench/measurements.h"
#include "bench/target_table.h"

#include <vector>

namespace corvane::bench {

/// What the window says before and after a cut: the check of a document, a trial of the rules, the reasons of an edit.
void registerAnalysisJobs();
[[nodiscard]] std::vector<TargetRow> analysisTargets(const Measurements& measurements);

} // namespace corvane::bench
