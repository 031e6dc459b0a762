#include "bench/generation_jobs.h"

#include "bench/number_project.h"
#include "bench/stopwatch.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"

#include <array>
#include <stdexcept>

namespace corvane::bench {

namespace {

constexpr const char* perCutFigure = "a cut";
constexpr const char* perCutOfFewFigure = "a cut at 5,000"; ///< measured alternately with the job itself
constexpr const char* reportName = "usage, gaps and warning, 5,000 cuts";

struct Size {
    const char* name;
    std::int64_t cuts;
    std::int64_t hours;
};
constexpr std::array<Size, 3> sizes = {
    Size{"generate 5,000 cuts", 5'000, 10}, Size{"generate 10,000 cuts", 10'000, 20},
    Size{"generate 20,000 cuts", 20'000, 40}};

std::vector<Cut> generate(const NumberProject& project)
{
    return generateFromSettings(project.imported, project.engine, project.settings);
}

void measureGeneration(benchmark::State& state, Size size)
{
    const NumberProject project = numberProject(size.hours);
    const NumberProject few = numberProject(sizes.front().hours);
    double seconds = 0;
    double cuts = 0;
    double secondsOfFew = 0;
    double fewCuts = 0;
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watchOfFew;
        fewCuts += static_cast<double>(generate(few).size());
        secondsOfFew += watchOfFew.seconds();
        const Stopwatch watch;
        const std::vector<Cut> list = generate(project);
        const double took = watch.seconds();
        state.SetIterationTime(took);
        seconds += took;
        cuts += static_cast<double>(list.size());
    }
    state.counters[perCutOfFewFigure] = secondsOfFew / fewCuts;
    const double promised = static_cast<double>(size.cuts * state.iterations());
    if (cuts < promised * 0.95 || cuts > promised * 1.05)
        throw std::runtime_error("The settings do not lead to the number of cuts that is to be measured.");
    state.counters[perCutFigure] = seconds / cuts;
}

void measureReport(benchmark::State& state)
{
    const NumberProject project = numberProject(sizes.front().hours);
    const std::vector<Cut> cuts = generate(project);
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        auto usage = cameraUsage(cuts);
        const CoverageReport report = selectedCoverage(project.imported, project.engine, project.settings);
        auto gaps = uncoveredStretches(report.covered, project.engine.length);
        auto warning = setupWarning(project.imported, project.engine, project.settings);
        benchmark::DoNotOptimize(usage);
        benchmark::DoNotOptimize(gaps);
        benchmark::DoNotOptimize(warning);
        state.SetIterationTime(watch.seconds());
        if (report.message || !gaps.empty() || warning || usage.size() != project.imported.angles.size())
            throw std::runtime_error("The project to be reported on is not the one that was meant.");
    }
}

} // namespace

void registerGenerationJobs()
{
    for (const Size& size : sizes) {
        benchmark::RegisterBenchmark(size.name, measureGeneration, size)->UseManualTime()->Repetitions(repetitions);
    }
    benchmark::RegisterBenchmark(reportName, measureReport)->UseManualTime()->Repetitions(repetitions);
}

std::vector<TargetRow> generationTargets(const Measurements& measurements)
{
    const auto growth = [&](const Size& size) {
        const auto many = measurements.median(size.name, perCutFigure);
        const auto few = measurements.median(size.name, perCutOfFewFigure);
        return ratioRow(
            std::string(size.name) + ", time a cut", quotient(many, few), 1.3, quotientText(many, few) + " at 5,000");
    };
    return {
        timeRow(sizes[0].name, measurements.median(sizes[0].name), 0.005), growth(sizes[1]), growth(sizes[2]),
        timeRow(reportName, measurements.median(reportName), 0.001)};
}

} // namespace corvane::bench
