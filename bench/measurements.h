#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::bench {

/// Every job is measured this often; what counts is the median.
inline constexpr int repetitions = 5;

/// The figure that a job gives to SetIterationTime. Its counters are figures too; all figures are seconds, but those
/// whose names end in "bytes" or "ratio".
inline constexpr std::string_view ownTime = "time";

/// Keeps the figures of a run of the benchmarks, and prints them as they come in.
class Measurements : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The median over the repetitions of one figure of a job; none when the job did not run.
    [[nodiscard]] std::optional<double> median(std::string_view job, std::string_view figure = ownTime) const;

private:
    using Figures = std::map<std::string, std::vector<double>, std::less<>>;
    std::map<std::string, Figures, std::less<>> jobs_;
};

/// "812 ns", "16.4 us", "4.31 ms", "1.24 s".
[[nodiscard]] std::string durationText(double seconds);

} // namespace corvane::bench
