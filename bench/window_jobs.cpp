#include "bench/window_jobs.h"

#include "bench/edit_document.h"
#include "bench/fresh_process.h"
#include "bench/session_window.h"
#include "bench/stopwatch.h"
#include "platform/files.h"
#include "workspace/window/main_window.h"
#include "workspace/window/theme.h"

#include <QApplication>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace corvane::bench {

namespace {

constexpr const char* startName = "start to first window";
constexpr const char* tickName = "slider tick, 500 cuts x 100";
constexpr const char* showName = "generate and show 5,000 cuts";
constexpr const char* lateFigure = "p95";

std::unique_ptr<QApplication>& toolkit()
{
    static std::unique_ptr<QApplication> application;
    return application;
}

/// Once, without a display.
void startToolkit()
{
    if (toolkit())
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static std::string name = "corvane_bench";
    static char* arguments = name.data();
    toolkit() = std::make_unique<QApplication>(count, &arguments);
    theme::apply(*toolkit());
}

/// The main window over a controller on a folder.
class ShownWindow {
public:
    explicit ShownWindow(const std::string& folder)
        : session_(folder),
          resources_({CORVANE_RESOURCES}),
          window_(
              {session_.view(),
               session_.inbox(),
               session_.defaults(),
               resources_,
               updater_,
               busy_,
               [](const std::string&) {},
               {}})
    {
        window_.show();
    }

    SessionWindow& session() { return session_; }

    /// Until everything that was asked for is on screen.
    static void paint() { QCoreApplication::processEvents(); }

private:
    SessionWindow session_;
    ResourceFolders resources_;
    NoUpdater updater_;
    BusySignLabel busy_;
    MainWindow window_;
};

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

void endToolkit()
{
    toolkit().reset();
}

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
