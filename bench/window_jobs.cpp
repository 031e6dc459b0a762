#include "bench/window_jobs.h"

#include "bench/edit_document.h"
#include "bench/fresh_process.h"
#include "bench/session_window.h"
#include "bench/shown_window.h"
#include "bench/stopwatch.h"
#include "platform/files.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace corvane::bench {

namespace {

constexpr const char* startName = "start to first window";
constexpr const char* tickName = "slider tick, 500 cuts x 100";
constexpr const char* showName = "generate and show 5,000 cuts";
constexpr const char* lateFigure = "p95";

void measureStart(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(secondsToFirstWindow());
}

double late(std::vector<double> seconds)
{
    std::ranges::sort(seconds);
    return seconds[seconds.size() * 95 / 100];
}

void measureTick(benchmark::State& state)
{
    startToolkit();
    ShownWindow window(storedSession(usual));
    window.session().appear();
    ShownWindow::paint();
    std::vector<double> ticks;
    double share = 10;
    for ([[maybe_unused]] auto _ : state) {
        share = share < 90 ? share + 5 : 10;
        const Stopwatch watch;
        window.session().setMainShare(share);
        ShownWindow::paint();
        ticks.push_back(watch.seconds());
        state.SetIterationTime(ticks.back());
    }
    state.counters[lateFigure] = late(ticks);
}

void measureShow(benchmark::State& state)
{
    startToolkit();
    constexpr std::size_t cuts = 5'000;
    const std::string folder = pathIn(CORVANE_BENCH_SESSIONS, "show");
    makeFolders(folder);
    std::filesystem::remove(pathIn(folder, "session-v1.json"));
    ShownWindow window(folder);
    window.session().view().importXML(editDocument(cuts).bytes);
    window.session().view().edit([](WorkspaceState& change) {
        EditSettings& settings = change.settings;
        settings.mainMinimum = settings.otherMinimum = 5; // seven seconds on average, as the document's cuts have
        settings.mainMaximum = settings.otherMaximum = 9;
    });
    ShownWindow::paint();
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        window.session().view().generateRoughEdit();
        ShownWindow::paint();
        state.SetIterationTime(watch.seconds());
        const std::size_t shown = window.session().state().cuts().size();
        if (shown < cuts * 9 / 10 || shown > cuts * 11 / 10)
            throw std::runtime_error("There are " + std::to_string(shown) + " cuts to show.");
    }
}

} // namespace

void registerWindowJobs()
{
    benchmark::RegisterBenchmark(startName, measureStart)->UseManualTime()->Iterations(3)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(tickName, measureTick)->UseManualTime()->Iterations(60)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(showName, measureShow)->UseManualTime()->Iterations(5)->Repetitions(repetitions);
}

std::vector<TargetRow> windowTargets(const Measurements& measurements)
{
    return {
        timeRow(startName, measurements.median(startName), 0.15),
        timeRow(std::string(tickName) + ", p95", measurements.median(tickName, lateFigure), 0.033),
        timeRow(showName, measurements.median(showName), 0.1)};
}

} // namespace corvane::bench
