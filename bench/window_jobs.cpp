#include "bench/window_jobs.h"

#include "bench/edit_document.h"
#include "bench/fresh_process.h"
#include "bench/session_window.h"
#include "bench/shown_window.h"
#include "bench/stopwatch.h"
#include "platform/files.h"
#include "workspace/window/pictures/cut_strip.h"

#include <QCoreApplication>
#include <QWheelEvent>
#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace corvane::bench {

namespace {

constexpr const char* startName = "start to first window";
constexpr const char* tickName = "slider tick, 500 cuts x 100";
constexpr const char* showName = "generate and show 5,000 cuts";
constexpr const char* zoomName = "zoom or pan 5,000 cuts, 16 cameras";
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

/// An empty folder for a session.
std::string freshFolder(const std::string& name)
{
    const std::string folder = pathIn(CORVANE_BENCH_SESSIONS, name);
    makeFolders(folder);
    std::filesystem::remove(pathIn(folder, "session-v1.json"));
    return folder;
}

/// Imports a project for edits of about so many cuts.
void importForCuts(ShownWindow& window, std::size_t cuts, std::size_t cameras)
{
    window.session().view().importXML(editDocument(cuts, cameras).bytes);
    window.session().view().edit([](WorkspaceState& change) {
        EditSettings& settings = change.settings;
        settings.mainMinimum = settings.otherMinimum = 5; // seven seconds on average, as the document's cuts have
        settings.mainMaximum = settings.otherMaximum = 9;
    });
    ShownWindow::paint();
}

void requireCuts(ShownWindow& window, std::size_t cuts)
{
    const std::size_t shown = window.session().state().cuts().size();
    if (shown < cuts * 9 / 10 || shown > cuts * 11 / 10)
        throw std::runtime_error("There are " + std::to_string(shown) + " cuts to show.");
}

void measureShow(benchmark::State& state)
{
    startToolkit();
    constexpr std::size_t cuts = 5'000;
    ShownWindow window(freshFolder("show"));
    importForCuts(window, cuts, 7);
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        window.session().view().generateRoughEdit();
        ShownWindow::paint();
        state.SetIterationTime(watch.seconds());
        requireCuts(window, cuts);
    }
}

/// A notch of the mouse wheel over the middle of the strip.
void turnWheel(CutStrip& strip, int notches, Qt::KeyboardModifiers held)
{
    const QPoint place = strip.rect().center();
    QWheelEvent event(
        place, strip.mapToGlobal(place), {}, {0, notches * 120}, Qt::NoButton, held, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&strip, &event);
}

/// From all of the edit in and out again, with a little panning at each step.
void measureZoom(benchmark::State& state)
{
    startToolkit();
    constexpr std::size_t cuts = 5'000;
    ShownWindow window(freshFolder("zoom"));
    window.window().resize(1440, 900);
    importForCuts(window, cuts, 16);
    window.session().view().generateRoughEdit();
    ShownWindow::paint();
    requireCuts(window, cuts);
    auto* strip = window.window().findChild<CutStrip*>();
    std::vector<double> frames;
    constexpr int deep = 20;
    int step = 0;
    for ([[maybe_unused]] auto _ : state) {
        const bool pans = step % 3 == 2;
        const int notches = step / 3 / deep % 2 == 0 ? 1 : -1;
        const Stopwatch watch;
        turnWheel(*strip, notches, pans ? Qt::ShiftModifier : Qt::ControlModifier);
        ShownWindow::paint();
        frames.push_back(watch.seconds());
        state.SetIterationTime(frames.back());
        ++step;
    }
    state.counters[lateFigure] = late(frames);
}

} // namespace

void registerWindowJobs()
{
    benchmark::RegisterBenchmark(startName, measureStart)->UseManualTime()->Iterations(3)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(tickName, measureTick)->UseManualTime()->Iterations(60)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(showName, measureShow)->UseManualTime()->Iterations(5)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(zoomName, measureZoom)->UseManualTime()->Iterations(120)->Repetitions(repetitions);
}

std::vector<TargetRow> windowTargets(const Measurements& measurements)
{
    return {
        timeRow(startName, measurements.median(startName), 0.15),
        timeRow(std::string(tickName) + ", p95", measurements.median(tickName, lateFigure), 0.033),
        timeRow(showName, measurements.median(showName), 0.1),
        timeRow(std::string(zoomName) + ", p95", measurements.median(zoomName, lateFigure), 0.0167)};
}

} // namespace corvane::bench
