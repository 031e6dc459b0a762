#pragma once

#include "bench/measurements.h"
#include "bench/target_table.h"

#include <vector>

/// The window, without a display: what a person waits for between an action and its picture.
namespace corvane::bench {

void registerWindowJobs();
[[nodiscard]] std::vector<TargetRow> windowTargets(const Measurements& measurements);

} // namespace corvane::bench
