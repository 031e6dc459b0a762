#include "bench/window_jobs.h"

#include "bench/edit_document.h"
#include "bench/fresh_process.h"
#include "bench/session_window.h"
#include "bench/shown_window.h"
#include "bench/stopwatch.h"
#include "platform/files.h"
#include "workspace/window/edits_sheet.h"
#include "workspace/window/pictures/cut_strip.h"

#include <QCoreApplication>
#include <QWheelEvent>
#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <utility>

namespace corvane::bench {

namespace {

constexpr const char* startName = "start to first window";
constexpr const char* tickName = "slider tick, 500 cuts x 100";
constexpr const char* showName = "generate and show 5,000 cuts";
constexpr const char* zoomName = "zoom or pan 5,000 cuts, 16 cameras";
constexpr const char* holdFewName = "hold 10 of 5,000 cuts";
constexpr const char* holdManyName = "hold 100 of 5,000 cuts";
constexpr const char* undoName = "undo and redo, 500 cuts x 100";
constexpr const char* listName = "list of 500 edits, 5,000 cuts each";
constexpr const char* lateFigure = "p95";
constexpr std::size_t manyCuts = 5'000;

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

/// In each iteration one setting is undone or done again, and saved.
void measureUndo(benchmark::State& state)
{
    startToolkit();
    ShownWindow window(storedSession(usual));
    window.session().appear();
    constexpr double changed = 15;
    window.session().setMainShare(changed);
    ShownWindow::paint();
    std::vector<double> steps;
    for ([[maybe_unused]] auto _ : state) {
        const bool isDone = window.session().state().settings.mainShare == changed;
        const Stopwatch watch;
        if (isDone)
            window.session().view().undo();
        else
            window.session().view().redo();
        ShownWindow::paint();
        steps.push_back(watch.seconds());
        state.SetIterationTime(steps.back());
        if (isDone == (window.session().state().settings.mainShare == changed))
            throw std::runtime_error("A step was not taken.");
    }
    state.counters[lateFigure] = late(steps);
}

/// Empties the folder, so that its window begins without a project.
std::string emptyFolder(const char* name)
{
    std::string folder = pathIn(CORVANE_BENCH_SESSIONS, name);
    makeFolders(folder);
    std::filesystem::remove(pathIn(folder, "session-v1.json"));
    return folder;
}

/// With settings that lead to about as many cuts as the document's edit has.
void importProject(ShownWindow& window, std::size_t cameras)
{
    window.session().view().importXML(editDocument(manyCuts, cameras).bytes);
    window.session().view().edit([](WorkspaceState& change) {
        EditSettings& settings = change.settings;
        settings.mainMinimum = settings.otherMinimum = 5; // seven seconds on average, as the document's cuts have
        settings.mainMaximum = settings.otherMaximum = 9;
    });
    ShownWindow::paint();
}

void requireManyCuts(ShownWindow& window)
{
    const std::size_t shown = window.session().state().cuts().size();
    if (shown < manyCuts * 9 / 10 || shown > manyCuts * 11 / 10)
        throw std::runtime_error("There are " + std::to_string(shown) + " cuts to show.");
}

void measureShow(benchmark::State& state)
{
    startToolkit();
    ShownWindow window(emptyFolder("show"));
    importProject(window, 7);
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        window.session().view().generateRoughEdit();
        ShownWindow::paint();
        state.SetIterationTime(watch.seconds());
        requireManyCuts(window);
    }
}

/// The same shots of the same edit in each iteration; Undo goes back to it.
void measureHold(benchmark::State& state, std::size_t shots)
{
    startToolkit();
    ShownWindow window(emptyFolder("hold"));
    window.resize({1440, 900});
    importProject(window, 16);
    ContentView& view = window.session().view();
    view.generateRoughEdit();
    ShownWindow::paint();
    requireManyCuts(window);
    std::vector<std::size_t> chosen;
    for (std::size_t shot = 0; shot < shots; ++shot)
        chosen.push_back(view.state().cuts().size() * (2 * shot + 1) / (2 * shots));
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        view.hold(chosen);
        ShownWindow::paint();
        state.SetIterationTime(watch.seconds());
        if (view.state().settings.sections.size() != shots || view.state().sessionSaveError)
            throw std::runtime_error("The shots were not held.");
        view.undo();
        ShownWindow::paint();
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
    ShownWindow window(emptyFolder("zoom"));
    window.resize({1440, 900});
    importProject(window, 16);
    window.session().view().generateRoughEdit();
    ShownWindow::paint();
    requireManyCuts(window);
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

/// Opens the list of the edits of a long history.
void measureList(benchmark::State& state)
{
    startToolkit();
    ShownWindow window(emptyFolder("list"));
    ContentView& view = window.session().view();
    LargeSession session = largeSession({manyCuts, 500, 1'000'000});
    view.importXML(session.sourceXML);
    view.edit([&session](WorkspaceState& change) {
        change.history = std::move(session.history);
        change.preview = change.history.currentRevision();
    });
    ShownWindow::paint();
    const CameraMarks marks(view);
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch watch;
        EditsSheet sheet(view, marks, &window.window());
        sheet.showList();
        ShownWindow::paint();
        state.SetIterationTime(watch.seconds());
    }
}

} // namespace

void registerWindowJobs()
{
    benchmark::RegisterBenchmark(startName, measureStart)->UseManualTime()->Iterations(3)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(tickName, measureTick)->UseManualTime()->Iterations(60)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(undoName, measureUndo)->UseManualTime()->Iterations(60)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(showName, measureShow)->UseManualTime()->Iterations(5)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(zoomName, measureZoom)->UseManualTime()->Iterations(120)->Repetitions(repetitions);
    benchmark::RegisterBenchmark(listName, measureList)->UseManualTime()->Iterations(5)->Repetitions(repetitions);
    for (const auto& [name, shots] : {std::pair(holdFewName, 10U), {holdManyName, 100U}})
        benchmark::RegisterBenchmark(name, measureHold, shots)
            ->UseManualTime()
            ->Iterations(5)
            ->Repetitions(repetitions);
}

std::vector<TargetRow> windowTargets(const Measurements& measurements)
{
    return {
        timeRow(startName, measurements.median(startName), 0.15),
        timeRow(std::string(tickName) + ", p95", measurements.median(tickName, lateFigure), 0.033),
        timeRow(std::string(undoName) + ", p95", measurements.median(undoName, lateFigure), 0.033),
        timeRow(showName, measurements.median(showName), 0.1),
        timeRow(holdFewName, measurements.median(holdFewName), 0.05),
        timeRow(holdManyName, measurements.median(holdManyName), 0.15),
        timeRow(std::string(zoomName) + ", p95", measurements.median(zoomName, lateFigure), 0.0167),
        timeRow(listName, measurements.median(listName), 0.1)};
}

} // namespace corvane::bench
