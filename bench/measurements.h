#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::bench {

/// How often every job is measured; the median counts.
inline constexpr int repetitions = 5;

/// The figure that a job passes to SetIterationTime. Its counters are figures too. All figures are in seconds, except
/// those whose names end in "bytes" or "ratio".
inline constexpr std::string_view ownTime = "time";

/// Collects the figures of a benchmark run, and prints them as they arrive.
class Measurements : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The median of one figure of a job over all repetitions; none if the job did not run.
    [[nodiscard]] std::optional<double> median(std::string_view job, std::string_view figure = ownTime) const;

private:
    using Figures = std::map<std::string, std::vector<double>, std::less<>>;
    std::map<std::string, Figures, std::less<>> jobs_;
};

/// "812 ns", "16.4 us", "4.31 ms", "1.24 s".
[[nodiscard]] std::string durationText(double seconds);

} // namespace corvane::bench
