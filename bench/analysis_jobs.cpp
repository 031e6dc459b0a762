#include "bench/analysis_jobs.h"

#include "analysis/project_check.h"
#include "analysis/rule_trial.h"
#include "analysis/shot_reasons.h"
#include "bench/number_project.h"
#include "bench/stopwatch.h"
#include "engine/generation_inputs.h"
#include "import/project_loading.h"
#include "platform/files.h"
#include "session/starting_settings.h"

#include <stdexcept>
#include <string>

namespace corvane::bench {

namespace {

constexpr const char* checkName = "check of a document, 10 MB";
constexpr const char* reasonsName = "reasons of 5,000 cuts";
constexpr const char* trialName = "a try of the rules, 5,000 cuts";
constexpr std::int64_t hours = 10; // which make 5,000 cuts

void measureCheck(benchmark::State& state)
{
    const LoadedProject project = loadProject(readFile(CORVANE_BENCH_DOCUMENTS "/import-10MB.fcpxml"));
    const EditSettings settings = startingSettings(project.imported, project.engine, {});
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        const ProjectCheck check = checkProject(project.imported, project.engine, settings);
        const std::string text = checkText(project.imported, project.engine, settings, check);
        state.SetIterationTime(watch.seconds());
        benchmark::DoNotOptimize(text.data());
    }
}

void measureReasons(benchmark::State& state)
{
    const NumberProject project = numberProject(hours);
    const auto cuts = generateFromSettings(project.imported, project.engine, project.settings);
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        const ShotReasons reasons(project.imported, project.engine, project.settings, cuts);
        std::size_t told = 0;
        for (std::size_t i = 0; i < cuts.size(); ++i)
            told += reasons.begins(i).empty() || reasons.ends(i).empty() ? 0U : 1U;
        state.SetIterationTime(watch.seconds());
        if (told != cuts.size())
            throw std::runtime_error("A shot has no reason.");
    }
}

void measureTrial(benchmark::State& state)
{
    const NumberProject project = numberProject(hours);
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        const RuleTrial trial = tryRules(project.imported, project.engine, project.settings);
        state.SetIterationTime(watch.seconds());
        if (trial.tries == 0 || trial.refused > 0)
            throw std::runtime_error("The rules cannot be tried.");
    }
}

} // namespace

void registerAnalysisJobs()
{
    benchmark::RegisterBenchmark(checkName, measureCheck)->UseManualTime()->Repetitions(repetitions);
    benchmark::RegisterBenchmark(reasonsName, measureReasons)->UseManualTime()->Repetitions(repetitions);
    benchmark::RegisterBenchmark(trialName, measureTrial)->UseManualTime()->Repetitions(repetitions);
}

std::vector<TargetRow> analysisTargets(const Measurements& measurements)
{
    return {
        timeRow(checkName, measurements.median(checkName), 0.010),
        timeRow(reasonsName, measurements.median(reasonsName), 0.005),
        timeRow(trialName, measurements.median(trialName), 0.200)};
}

} // namespace corvane::bench
