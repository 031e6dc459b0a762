// Measures every job that has a target and prints one table of what was measured beside what must be reached. A target
// that is missed is told in the table alone; only a job that fails ends the program with an error.
#include "bench/analysis_jobs.h"
#include "bench/conditions.h"
#include "bench/export_jobs.h"
#include "bench/generation_jobs.h"
#include "bench/import_jobs.h"
#include "bench/measurements.h"
#include "bench/session_jobs.h"
#include "bench/shown_window.h"
#include "bench/target_table.h"
#include "bench/window_jobs.h"

#include <cstdlib>
#include <exception>
#include <iostream>

namespace {

void append(std::vector<corvane::bench::TargetRow>& rows, const std::vector<corvane::bench::TargetRow>& more)
{
    rows.insert(rows.end(), more.begin(), more.end());
}

} // namespace

int main(int count, char** arguments)
{
    using namespace corvane::bench;
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments))
        return EXIT_FAILURE;
    stayOnOneProcessor();
    keepFreedMemory();
    try {
        registerImportJobs();
        registerGenerationJobs();
        registerAnalysisJobs();
        registerExportJobs();
        registerSessionJobs();
        registerWindowJobs();
        Measurements measurements;
        benchmark::RunSpecifiedBenchmarks(&measurements);
        std::vector<TargetRow> rows;
        append(rows, importTargets(measurements));
        append(rows, generationTargets(measurements));
        append(rows, analysisTargets(measurements));
        append(rows, exportTargets(measurements));
        append(rows, sessionTargets(measurements));
        append(rows, windowTargets(measurements));
        std::cout << '\n';
        printTargets(rows);
        endToolkit();
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}
