#include "bench/import_jobs.h"

#include "bench/bare_document.h"
#include "bench/conditions.h"
#include "bench/document_generator.h"
#include "bench/fresh_process.h"
#include "bench/stopwatch.h"
#include "import/cut_engine.h"
#include "import/project_loading.h"
#include "platform/files.h"

#include <array>
#include <stdexcept>

namespace corvane::bench {

namespace {

constexpr const char* parseFigure = "parse";
constexpr const char* ratioFigure = "ratio"; ///< of two runs one after the other

/// A document, and how often it is read in the warm loop of one repetition.
struct Size {
    int megabytes;
    int warmIterations;
};
constexpr std::array<Size, 3> sizes = {Size{1, 100}, Size{10, 20}, Size{100, 4}};

std::string documentPath(int megabytes)
{
    return pathIn(CORVANE_BENCH_DOCUMENTS, "import-" + std::to_string(megabytes) + "MB.fcpxml");
}

std::string jobName(const char* kind, int megabytes)
{
    return "import " + std::to_string(megabytes) + " MB, " + kind;
}

std::string freshName(int megabytes)
{
    return jobName("fresh processes", megabytes);
}

std::string warmName(int megabytes)
{
    return jobName("warm loop", megabytes);
}

double secondsOfParse(const std::string& bytes)
{
    settleHeap();
    const Stopwatch watch;
    const BareDocument document = BareDocument::parse(bytes);
    return watch.seconds(); // before the document is freed
}

double secondsOfImport(const std::string& bytes)
{
    settleHeap();
    const Stopwatch watch;
    const LoadedProject project = loadProject(bytes);
    const double seconds = watch.seconds();
    if (project.imported.angles.size() != importAngles || project.engine.coverage.size() != importAngles)
        throw std::runtime_error("The generated document is not imported whole.");
    return seconds;
}

void measureFresh(benchmark::State& state, int megabytes)
{
    const std::string path = documentPath(megabytes);
    double parse = 0;
    double import = 0;
    for ([[maybe_unused]] auto _ : state) {
        parse += secondsInFreshProcess(FreshWork::parse, path);
        const double seconds = secondsInFreshProcess(FreshWork::import, path);
        import += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters[parseFigure] = parse / static_cast<double>(state.iterations());
    state.counters[ratioFigure] = import / parse;
}

/// Parse and import alternate, so that whatever slows the machine slows both.
void measureWarm(benchmark::State& state, int megabytes)
{
    const std::string bytes = readFile(documentPath(megabytes));
    secondsOfParse(bytes);
    secondsOfImport(bytes);
    double parse = 0;
    double import = 0;
    for ([[maybe_unused]] auto _ : state) {
        parse += secondsOfParse(bytes);
        const double seconds = secondsOfImport(bytes);
        import += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters[parseFigure] = parse / static_cast<double>(state.iterations());
    state.counters[ratioFigure] = import / parse;
}

/// The median of the ratios, not the ratio of the medians, because a temporarily slower machine slows both.
std::optional<double> ratio(const Measurements& measurements, const std::string& job)
{
    return measurements.median(job, ratioFigure);
}

TargetRow against(const Measurements& measurements, const std::string& job, double limit)
{
    return ratioRow(
        job, ratio(measurements, job), limit,
        quotientText(measurements.median(job), measurements.median(job, parseFigure)) + " for a bare parse");
}

} // namespace

void registerImportJobs()
{
    for (const Size size : sizes) {
        benchmark::RegisterBenchmark(freshName(size.megabytes).c_str(), measureFresh, size.megabytes)
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(repetitions);
    }
    for (const Size size : sizes) {
        benchmark::RegisterBenchmark(warmName(size.megabytes).c_str(), measureWarm, size.megabytes)
            ->UseManualTime()
            ->Iterations(size.warmIterations)
            ->Repetitions(repetitions);
    }
}

std::vector<TargetRow> importTargets(const Measurements& measurements)
{
    std::vector<TargetRow> rows;
    rows.reserve(2 * sizes.size() + 1);
    for (const Size size : sizes)
        rows.push_back(against(measurements, freshName(size.megabytes), 1.25));
    for (const Size size : sizes)
        rows.push_back(against(measurements, warmName(size.megabytes), 1.6));
    const auto large = ratio(measurements, freshName(100));
    const auto small = ratio(measurements, freshName(10));
    rows.push_back(
        ratioRow("import, ratio at 100 MB to that at 10 MB", quotient(large, small), 1.15, "fresh processes"));
    return rows;
}

} // namespace corvane::bench
