// The complete program without a window: an exported project in, a rough edit with the starting settings out. Because
// terminals interpret control characters, texts from the document are printed as the window would draw them.
//     corvane_rough_edit PROJECT.fcpxml FOLDER
#include "base/error.h"
#include "base/numbers.h"
#include "base/text.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "export/carry_over.h"
#include "export/export_files.h"
#include "export/rough_edit_writer.h"
#include "export/settings_record.h"
#include "import/final_cut_import_error.h"
#include "import/project_loading.h"
#include "intake/project_file.h"
#include "platform/files.h"
#include "session/starting_settings.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <iomanip>
#include <iostream>
#include <string_view>

using namespace corvane;

namespace {

/// Runs a step and prints how long it took.
template <class Step>
auto timed(std::string_view name, const Step& step)
{
    const auto start = std::chrono::steady_clock::now();
    auto result = step();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    std::cout << "  " << std::left << std::setw(10) << name << fixed(took.count(), 1) << " ms\n";
    return result;
}

std::string share(const CutEngine& engine, Frames frames)
{
    return fixed(static_cast<double>(frames) / static_cast<double>(engine.length) * 100, 1) + "%";
}

std::string coverage(const CutEngine& engine, const std::vector<FrameRange>& stretches)
{
    Frames covered = 0;
    for (const FrameRange& stretch : stretches)
        covered += stretch.end - stretch.start;
    return stretches.empty() ? "none" : share(engine, covered) + " in " + std::to_string(stretches.size());
}

void printProject(const ImportedProject& project, const CutEngine& engine)
{
    std::cout << "\n"
              << shownText(project.name) << " (FCPXML " << shownText(project.version) << "), "
              << timecodeLabel(engine, 0) << " to " << timecodeLabel(engine, engine.length) << ", "
              << shortNumber(project.framesPerSecond) << " frames a second\n\n"
              << std::left << std::setw(30) << "Angle" << std::setw(16) << "Video" << "Audio\n";
    for (const ImportedAngle& angle : project.angles)
        std::cout << std::setw(30) << shownText(angle.name) << std::setw(16)
                  << coverage(engine, engine.videoRanges(angle.id)) << coverage(engine, engine.audioRanges(angle.id))
                  << "\n";
}

void printUsage(const ImportedProject& project, const CutEngine& engine, const std::vector<Cut>& cuts)
{
    const UsageByCamera usage = cameraUsage(cuts);
    std::cout << "\nActual camera usage (" << cuts.size() << (cuts.size() == 1 ? " cut" : " cuts") << ")\n"
              << std::setw(30) << "Camera" << std::setw(16) << "Screen time" << std::setw(10) << "Share" << "Shots\n";
    for (const ImportedAngle& angle : videoAngles(project, engine)) {
        const auto found = usage.find(angle.id);
        const CameraUsage used = found == usage.end() ? CameraUsage{} : found->second;
        std::cout << std::setw(30) << shownText(angle.name) << std::setw(16)
                  << fixed(engine.seconds(used.frames), 2) + " sec" << std::setw(10) << share(engine, used.frames)
                  << used.shots << "\n";
    }
}

void printCarryOver(const CutEngine& engine)
{
    const auto list = [](std::string_view title, const std::vector<std::string>& names) {
        std::cout << title;
        for (const std::string& name : names)
            std::cout << (&name == &names.front() ? " " : ", ") << shownText(name);
        std::cout << "\n";
    };
    const CarryOver left = carryOver(engine);
    if (left.leftOut.empty())
        std::cout << "\nAll that the multicam clip has is carried over.\n";
    else
        list("\nOf the multicam clip not carried over:", left.leftOut);
    if (!left.lostTracking.empty())
        list("Follow a shape that is not in their own angle any more:", left.lostTracking);
}

/// An audio fade may be longer than the first or last random shot; then shuffle, as an editor would.
std::string shuffleUntilWritten(const ImportedProject& project, const CutEngine& engine, EditRevision& edit)
{
    constexpr int mostShuffles = 20;
    for (int shuffles = 0;; ++shuffles) {
        edit.cuts = timed("generate", [&] { return generateFromSettings(project, engine, edit.settings); });
        try {
            return timed("write", [&] { return roughEditXML(engine, edit.cuts, edit.settings.audio); });
        } catch (const FinalCutImportError& refusal) {
            if (shuffles == mostShuffles || !std::string_view(refusal.what()).starts_with("An audio fade"))
                throw;
            std::cout << "  " << shownText(refusal.what()) << " Shuffling.\n";
        }
    }
}

int makeRoughEdit(const std::string& projectFile, const std::string& folder)
{
    std::cout << "Steps\n";
    const ProjectFileContent file = timed("read", [&] { return readProjectFile(projectFile); });
    if (file.error)
        throw PlatformError(*file.error);
    const auto [project, engine] = timed("import", [&] { return loadProject(file.bytes); });
    EditRevision edit = {randomIdentifiers()(), Timestamp::now(), startingSettings(project, engine), {}};
    const std::string xml = shuffleUntilWritten(project, engine, edit);
    const std::string record = settingsRecordText(project, engine, edit);
    const ExportFiles files = timed("save", [&] { return writeExportFiles(folder, xml, record, project.name); });

    printProject(project, engine);
    printUsage(project, engine, edit.cuts);
    printCarryOver(engine);
    std::cout << "\nSaved " << withVisibleControls(files.xmlURL) << "\n  and " << withVisibleControls(files.settingsURL)
              << "\n";
    return 0;
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 3) {
        std::cerr << "Usage: corvane_rough_edit PROJECT.fcpxml FOLDER\n";
        return 2;
    }
    surviveFileSizeLimit();
    if (const auto refusal = addressRefusal(argv[1]))
        throw PlatformError(*refusal);
    return makeRoughEdit(argv[1], argv[2]);
} catch (const std::exception& failure) {
    std::cout.flush();
    std::cerr << shownText(failure.what()) << "\n";
    return 1;
}
