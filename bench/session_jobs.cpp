#include "bench/session_jobs.h"

#include "base/numbers.h"
#include "bench/conditions.h"
#include "bench/session_window.h"
#include "bench/stopwatch.h"
#include "import/project_loading.h"
#include "session/saved_session.h"

#include <malloc.h>

#include <utility>

namespace corvane::bench {

namespace {

constexpr const char* bareFigure = "bare write";
constexpr const char* validationFigure = "validation";
constexpr const char* fileFigure = "file bytes";
constexpr const char* recordsFigure = "records bytes";
constexpr const char* keptFigure = "kept for saves bytes";

constexpr SessionSize large = {2'000, 500, 10'000'000};

constexpr const char* usualSave = "save, 500 cuts x 100";
constexpr const char* usualRestore = "restore and save, 500 cuts x 100";
constexpr const char* largeSave = "save, 2,000 cuts x 500";
constexpr const char* largeMemory = "history, 2,000 cuts x 500";

/// Saving and the bare write take turns, so that whatever slows the disk slows both.
void measureSave(benchmark::State& state, const SessionSize& size)
{
    const std::string folder = storedSession(size);
    SessionWindow window(folder);
    window.appear();
    const std::string bytes = readFile(pathIn(folder, "session-v1.json"));
    writeBare(folder, "bare.json", bytes);
    double bare = 0;
    double share = 10;
    for ([[maybe_unused]] auto _ : state) {
        settleHeap();
        const Stopwatch writing;
        writeBare(folder, "bare.json", bytes);
        bare += writing.seconds();
        share = share < 90 ? share + 1 : 10;
        settleHeap();
        const Stopwatch saving;
        window.setMainShare(share);
        state.SetIterationTime(saving.seconds());
    }
    state.counters[bareFigure] = bare / static_cast<double>(state.iterations());
    state.counters[fileFigure] = static_cast<double>(bytes.size());
}

double secondsOfValidation(const std::string& bytes)
{
    const SavedEditSession session = decodeSession(bytes);
    const LoadedProject project = loadProject(session.sourceXML);
    settleHeap();
    const Stopwatch watch;
    validateSession(session, project.engine);
    return watch.seconds();
}

void measureRestore(benchmark::State& state, const SessionSize& size)
{
    const std::string folder = storedSession(size);
    const std::string bytes = readFile(pathIn(folder, "session-v1.json"));
    double validation = 0;
    for ([[maybe_unused]] auto _ : state) {
        validation += secondsOfValidation(bytes);
        SessionWindow window(folder);
        settleHeap();
        const Stopwatch watch;
        window.appear();
        state.SetIterationTime(watch.seconds());
    }
    state.counters[validationFigure] = validation / static_cast<double>(state.iterations());
}

double bytesInUse()
{
    const auto memory = ::mallinfo2();
    return static_cast<double>(memory.uordblks + memory.hblkhd);
}

/// The history as a restore reads it, and the forms of it that later saves write again.
void measureMemory(benchmark::State& state, const SessionSize& size)
{
    const std::string path = pathIn(storedSession(size), "session-v1.json");
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        settleHeap();
        const double before = bytesInUse();
        EditHistory history = decodeSession(readFile(path)).history;
        settleHeap();
        const double read = bytesInUse();
        SessionEncoder encoder;
        benchmark::DoNotOptimize(encoder.encode("", {}, history).size());
        settleHeap();
        state.counters[recordsFigure] = read - before;
        state.counters[keptFigure] = bytesInUse() - read;
        state.counters[fileFigure] = static_cast<double>(stampOf(path).value().size);
        state.SetIterationTime(watch.seconds());
    }
}

std::string megabytes(std::optional<double> bytes)
{
    return bytes ? fixed(*bytes / 1e6, 0) + " MB" : "-";
}

TargetRow saveTarget(const Measurements& measurements, const char* job)
{
    const auto save = measurements.median(job);
    const auto bare = measurements.median(job, bareFigure);
    return ratioRow(
        job, quotient(save, bare), 1.3,
        quotientText(save, bare) + " for a bare write of " + megabytes(measurements.median(job, fileFigure)) +
            ", on the build folder's disk");
}

TargetRow memoryTarget(const Measurements& measurements)
{
    const auto file = measurements.median(largeMemory, fileFigure);
    const auto records = measurements.median(largeMemory, recordsFigure);
    const auto kept = measurements.median(largeMemory, keptFigure);
    const auto both = records && kept ? std::optional(*records + *kept) : std::nullopt;
    return ratioRow(
        std::string(largeMemory) + ", memory", quotient(both, file), 2,
        megabytes(records) + " + " + megabytes(kept) + " kept for saves : " + megabytes(file) + " of file");
}

} // namespace

void registerSessionJobs()
{
    const auto add = [](const char* name, auto measure, const SessionSize& size, int iterations) {
        benchmark::RegisterBenchmark(name, measure, size)
            ->UseManualTime()
            ->Iterations(iterations)
            ->Repetitions(repetitions);
    };
    add(usualSave, measureSave, usual, 20);
    add(usualRestore, measureRestore, usual, 5);
    add(largeSave, measureSave, large, 4);
    benchmark::RegisterBenchmark(largeMemory, measureMemory, large)->UseManualTime()->Iterations(1);
}

std::vector<TargetRow> sessionTargets(const Measurements& measurements)
{
    return {
        saveTarget(measurements, usualSave), timeRow(usualRestore, measurements.median(usualRestore), 0.2),
        timeRow(std::string(usualRestore) + ": validation", measurements.median(usualRestore, validationFigure), 0.02),
        saveTarget(measurements, largeSave), memoryTarget(measurements)};
}

} // namespace corvane::bench
