#include "bench/export_jobs.h"

#include "bench/bare_document.h"
#include "bench/conditions.h"
#include "bench/edit_document.h"
#include "bench/stopwatch.h"
#include "export/rough_edit_writer.h"
#include "import/project_loading.h"

#include <array>
#include <stdexcept>

namespace corvane::bench {

namespace {

constexpr const char* serialiseFigure = "serialise";
constexpr const char* perClipFigure = "a clip";
constexpr const char* perClipOfFewFigure = "a clip at 5,000"; ///< measured in turns with the job itself

struct Size {
    const char* name;
    std::size_t clips;
};
constexpr std::array<Size, 3> sizes = {
    Size{"export 5,000 clips", 5'000}, Size{"export 10,000 clips", 10'000}, Size{"export 20,000 clips", 20'000}};

/// The finished document of the first export, to be serialised. What the two write must be alike in size, or they are
/// not comparable.
BareDocument finishedDocument(const std::string& written)
{
    BareDocument document = BareDocument::parse(written);
    const auto size = static_cast<double>(document.serialise());
    if (size < 0.9 * static_cast<double>(written.size()) || size > 1.1 * static_cast<double>(written.size()))
        throw std::runtime_error("The export and the serialised document differ in size.");
    return document;
}

/// Export and serialising take turns, so that whatever slows the machine slows both.
void measureExport(benchmark::State& state, std::size_t clips)
{
    const EditDocument source = editDocument(clips);
    const CutEngine engine = buildEngine(source.bytes);
    const BareDocument finished = finishedDocument(roughEditXML(engine, source.cuts));
    const EditDocument few = editDocument(sizes.front().clips);
    const CutEngine engineOfFew = buildEngine(few.bytes);
    double exported = 0;
    double exportedFew = 0;
    double serialised = 0;
    for ([[maybe_unused]] auto _ : state) {
        settleHeap();
        const Stopwatch exportingFew;
        benchmark::DoNotOptimize(roughEditXML(engineOfFew, few.cuts).size());
        exportedFew += exportingFew.seconds();
        settleHeap();
        const Stopwatch serialising;
        benchmark::DoNotOptimize(finished.serialise());
        serialised += serialising.seconds();
        settleHeap();
        const Stopwatch exporting;
        const std::string written = roughEditXML(engine, source.cuts);
        const double seconds = exporting.seconds();
        benchmark::DoNotOptimize(written.data());
        state.SetIterationTime(seconds);
        exported += seconds;
    }
    const auto iterations = static_cast<double>(state.iterations());
    state.counters[serialiseFigure] = serialised / iterations;
    state.counters[perClipOfFewFigure] = exportedFew / iterations / static_cast<double>(few.cuts.size());
    state.counters[perClipFigure] = exported / iterations / static_cast<double>(clips);
}

} // namespace

void registerExportJobs()
{
    for (const Size& size : sizes) {
        benchmark::RegisterBenchmark(size.name, measureExport, size.clips)->UseManualTime()->Repetitions(repetitions);
    }
}

std::vector<TargetRow> exportTargets(const Measurements& measurements)
{
    const char* first = sizes.front().name;
    // Work that grew with the square would take 4 times as long a clip; what outgrows the caches takes a third longer.
    constexpr double mostGrowth = 1.5;
    const auto growth = [&](const Size& size) {
        const auto many = measurements.median(size.name, perClipFigure);
        const auto few = measurements.median(size.name, perClipOfFewFigure);
        return ratioRow(
            std::string(size.name) + ", time a clip", quotient(many, few), mostGrowth,
            quotientText(many, few) + " at 5,000");
    };
    const auto whole = measurements.median(first);
    const auto serialised = measurements.median(first, serialiseFigure);
    return {
        ratioRow(first, quotient(whole, serialised), 1.5, quotientText(whole, serialised) + " for serialising"),
        growth(sizes[1]), growth(sizes[2])};
}

} // namespace corvane::bench
