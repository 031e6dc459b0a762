#pragma once

#include <optional>
#include <string>
#include <vector>

namespace corvane::bench {

/// One target: what is required, what was measured, and whether that is good enough.
struct TargetRow {
    std::string job;
    std::string measured;
    std::string mustReach;
    std::optional<bool> reached; ///< none if the job did not run
};

/// A row for a quotient of at most `limit`; `details` say what was divided. No quotient means that the job did not run.
[[nodiscard]] TargetRow ratioRow(
    std::string job, std::optional<double> ratio, double limit, const std::string& details);

/// A row for a time of at most `limit`, in seconds.
[[nodiscard]] TargetRow timeRow(std::string job, std::optional<double> seconds, double limit);

/// None if either argument is none.
[[nodiscard]] std::optional<double> quotient(std::optional<double> dividend, std::optional<double> divisor);

/// "52.10 ms : 47.36 ms", with a hyphen for a job that did not run.
[[nodiscard]] std::string quotientText(std::optional<double> dividend, std::optional<double> divisor);

/// Prints the rows in columns on standard output.
void printTargets(const std::vector<TargetRow>& rows);

} // namespace corvane::bench
