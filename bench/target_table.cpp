#include "bench/target_table.h"

#include "base/numbers.h"
#include "bench/measurements.h"

#include <algorithm>
#include <array>
#include <iostream>

namespace corvane::bench {

namespace {

using Cells = std::array<std::string, 4>;

Cells cells(const TargetRow& row)
{
    const char* verdict = !row.reached ? "-" : *row.reached ? "ok" : "MISSED";
    return {row.job, row.measured, row.mustReach, verdict};
}

std::string durationOrHyphen(std::optional<double> seconds)
{
    return seconds ? durationText(*seconds) : "-";
}

} // namespace

TargetRow ratioRow(std::string job, std::optional<double> ratio, double limit, const std::string& details)
{
    const std::string mustReach = "at most " + fixed(limit, 2) + " x";
    if (!ratio)
        return {std::move(job), "not run", mustReach, std::nullopt};
    return {std::move(job), fixed(*ratio, 2) + " x (" + details + ")", mustReach, *ratio <= limit};
}

TargetRow timeRow(std::string job, std::optional<double> seconds, double limit)
{
    const std::string mustReach = "at most " + durationText(limit);
    if (!seconds)
        return {std::move(job), "not run", mustReach, std::nullopt};
    return {std::move(job), durationText(*seconds), mustReach, *seconds <= limit};
}

std::optional<double> quotient(std::optional<double> dividend, std::optional<double> divisor)
{
    return dividend && divisor ? std::optional(*dividend / *divisor) : std::nullopt;
}

std::string quotientText(std::optional<double> dividend, std::optional<double> divisor)
{
    return durationOrHyphen(dividend) + " : " + durationOrHyphen(divisor);
}

void printTargets(const std::vector<TargetRow>& rows)
{
    std::vector<Cells> lines = {{"job", "measured", "must reach", "ok"}};
    std::ranges::transform(rows, std::back_inserter(lines), cells);
    std::array<std::size_t, 4> widths{};
    for (const Cells& line : lines) {
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths.at(column) = std::max(widths.at(column), line.at(column).size());
    }
    Cells rule;
    std::ranges::transform(widths, rule.begin(), [](std::size_t width) { return std::string(width, '-'); });
    lines.insert(lines.begin() + 1, rule);
    for (const Cells& line : lines) {
        std::string text;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            text += line.at(column);
            text.append(widths.at(column) - line.at(column).size(), ' ');
            if (column + 1 < widths.size())
                text += " | ";
        }
        text.erase(text.find_last_not_of(' ') + 1);
        std::cout << text << '\n';
    }
    std::cout << std::flush;
}

} // namespace corvane::bench
