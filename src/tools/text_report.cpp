#include "tools/text_report.h"

#include "analysis/rule_trial.h"
#include "base/numbers.h"
#include "base/text.h"
#include "engine/coverage_report.h"
#include "export/carry_over.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <ostream>
#include <string_view>

namespace corvane {

namespace {

std::string shareText(const CutEngine& engine, Frames frames)
{
    return fixed(static_cast<double>(frames) / static_cast<double>(engine.length) * 100, 1) + "%";
}

std::string covered(const CutEngine& engine, const std::vector<FrameRange>& ranges)
{
    Frames frames = 0;
    for (const FrameRange& range : ranges)
        frames += range.end - range.start;
    return ranges.empty() ? "none" : shareText(engine, frames) + " in " + std::to_string(ranges.size());
}

/// The text in a column of `width` characters, followed by at least two spaces.
std::string cell(std::string_view text, std::size_t width)
{
    const auto characters = static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
    return std::string(text) + std::string(characters + 2 < width ? width - characters : 2, ' ');
}

std::size_t widthFor(const std::vector<ImportedAngle>& angles)
{
    constexpr std::size_t usual = 30;
    constexpr std::size_t most = 60;
    std::size_t width = usual;
    for (const ImportedAngle& angle : angles)
        width = std::max(width, cell(shownText(angle.name), 0).size());
    return std::min(width, most);
}

constexpr std::size_t number = 16;
constexpr std::size_t share = 10;

void printList(std::ostream& out, std::string_view title, const std::vector<std::string>& names)
{
    out << title;
    for (const std::string& name : names)
        out << (&name == &names.front() ? " " : ", ") << shownText(name);
    out << "\n";
}

/// Prints the lines of the text, with tabs as columns.
void printLines(std::ostream& out, std::string_view text)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        for (std::size_t tab = line.find('\t'); tab != std::string_view::npos; tab = line.find('\t')) {
            out << cell(shownText(line.substr(0, tab)), number);
            line.remove_prefix(tab + 1);
        }
        out << shownText(line) << "\n";
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

} // namespace

void printProject(std::ostream& out, const LoadedFile& file)
{
    const CutEngine& engine = file.engine;
    const std::size_t name = widthFor(file.project.angles);
    out << shownText(file.project.name) << " (FCPXML " << shownText(file.project.version) << "), "
        << timecodeLabel(engine, 0) << " to " << timecodeLabel(engine, engine.length) << ", "
        << shortNumber(file.project.framesPerSecond) << " frames a second\n\n"
        << cell("Angle", name) << cell("Video", number) << "Audio\n";
    for (const ImportedAngle& angle : file.project.angles)
        out << cell(shownText(angle.name), name) << cell(covered(engine, engine.videoRanges(angle.id)), number)
            << covered(engine, engine.audioRanges(angle.id)) << "\n";
}

void printCheck(std::ostream& out, const LoadedFile& file, const ProjectCheck& check)
{
    const std::string text = checkText(file.project, file.engine, file.settings, check);
    if (!text.empty())
        out << "\n";
    printLines(out, text);
}

void printTrial(std::ostream& out, const LoadedFile& file)
{
    out << "\n" << shownText(trialSummary(tryRules(file.project, file.engine, file.settings))) << "\n";
}

void printUsage(std::ostream& out, const LoadedFile& file, const std::vector<Cut>& cuts)
{
    const auto targets = targetShares(file.project, file.engine, file.settings);
    const std::size_t name = widthFor(file.project.angles);
    out << "\nActual camera usage (" << cuts.size() << (cuts.size() == 1 ? " cut" : " cuts") << ")\n"
        << cell("Camera", name) << cell("Screen time", number) << cell("Share", share) << cell("Target", share)
        << "Shots\n";
    for (const CameraShare& camera : cameraShares(file.project, file.engine, cuts)) {
        const auto target = targets.find(camera.angle.id);
        out << cell(shownText(camera.angle.name), name)
            << cell(fixed(file.engine.seconds(camera.frames), 2) + " sec", number)
            << cell(fixed(camera.percent, 1) + "%", share)
            << cell(target == targets.end() ? "none" : fixed(target->second, 1) + "%", share) << camera.shots << "\n";
    }
}

void printCarryOver(std::ostream& out, const CutEngine& engine)
{
    const CarryOver left = carryOver(engine);
    if (left.leftOut.empty())
        out << "\nEverything in the multicam clip is carried over.\n";
    else
        printList(out, "\nNot carried over from the multicam clip:", left.leftOut);
    if (!left.lostTracking.empty())
        printList(out, "Following a shape of another clip:", left.lostTracking);
}

void printFiles(std::ostream& out, const ExportFiles& files)
{
    out << "\nSaved " << withVisibleControls(shownPath(files.xmlURL)) << "\n  and "
        << withVisibleControls(shownPath(files.settingsURL)) << "\n";
}

} // namespace corvane
