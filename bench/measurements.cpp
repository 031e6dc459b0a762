#include "bench/measurements.h"

#include "base/numbers.h"

#include <algorithm>
#include <iostream>
#include <set>

namespace corvane::bench {

namespace {

double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::string figureText(const std::string& name, double value)
{
    if (name.ends_with("ratio"))
        return fixed(value, 2) + " x";
    return name.ends_with("bytes") ? fixed(value / 1e6, 2) + " MB" : durationText(value);
}

} // namespace

bool Measurements::ReportContext(const Context& context)
{
    std::cerr << context.cpu_info.num_cpus << " processors, load";
    for (const double load : context.cpu_info.load_avg)
        std::cerr << ' ' << fixed(load, 2);
    std::cerr << '\n';
    return true;
}

void Measurements::ReportRuns(const std::vector<Run>& runs)
{
    std::set<std::string> reported;
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.iterations == 0)
            continue;
        const std::string& job = run.run_name.function_name;
        Figures& figures = jobs_[job];
        figures[std::string(ownTime)].push_back(run.real_accumulated_time / static_cast<double>(run.iterations));
        for (const auto& [name, counter] : run.counters)
            figures[name].push_back(counter.value);
        reported.insert(job);
    }
    for (const std::string& job : reported) {
        std::cerr << job << ':';
        for (const auto& [name, values] : jobs_[job]) {
            const auto [lowest, highest] = std::ranges::minmax(values);
            std::cerr << "  " << name << ' ' << figureText(name, medianOf(values)) << " (" << figureText(name, lowest)
                      << " to " << figureText(name, highest) << ')';
        }
        std::cerr << '\n';
    }
}

std::optional<double> Measurements::median(std::string_view job, std::string_view figure) const
{
    const auto figures = jobs_.find(job);
    if (figures == jobs_.end())
        return std::nullopt;
    const auto values = figures->second.find(figure);
    return values == figures->second.end() ? std::nullopt : std::optional(medianOf(values->second));
}

std::string durationText(double seconds)
{
    if (seconds < 1e-5)
        return fixed(seconds * 1e9, 0) + " ns";
    if (seconds < 1e-3)
        return fixed(seconds * 1e6, 1) + " us";
    return seconds < 1 ? fixed(seconds * 1e3, 2) + " ms" : fixed(seconds, 2) + " s";
}

} // namespace corvane::bench
