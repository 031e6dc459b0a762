#include "analysis/export_forecast.h"
#include "analysis/oddities.h"
#include "analysis/project_check.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "export/rough_edit_writer.h"
#include "export/source_items.h"
#include "fuzz/edits/plain_coverage.h"
#include "fuzz/edits/random_document.h"
#include "import/final_cut_import_error.h"
#include "import/project_loading.h"
#include "import/source_document.h"
#include "session/starting_settings.h"
#include "support/documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <random>
#include <set>

namespace corvane {
namespace {

using namespace test;

constexpr std::uint64_t firstDocument = 20'261'126; // of the first document; each further one has the next

std::string randomText(std::uint64_t number)
{
    std::mt19937_64 random(firstDocument + number);
    std::string bytes(2000, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() & 0xFFU);
    ByteDraws draws(bytes);
    return randomDocument(draws);
}

std::optional<LoadedProject> loaded(const std::string& document)
{
    try {
        return loadProject(document);
    } catch (const FinalCutImportError&) {
        return std::nullopt;
    }
}

TEST(UsableRanges, AreWhatAPersonWouldFindFrameByFrame)
{
    int checked = 0;
    std::size_t inPieces = 0;
    for (std::uint64_t number = 0; number < 3000; ++number) {
        const auto project = loaded(randomText(number));
        if (!project || videoAngles(project->imported, project->engine).size() < 2)
            continue;
        const CutEngine& engine = project->engine;
        EditSettings settings = startingSettings(project->imported, engine, {});
        settings.audio = project->imported.angles[number % project->imported.angles.size()].id;
        settings.otherCameras = {*std::next(
            settings.otherCameras.begin(), static_cast<std::ptrdiff_t>(number % settings.otherCameras.size()))};
        settings.openingEnabled = number % 3 == 0 && static_cast<double>(engine.length) > engine.frames(2);
        settings.openingSeconds = 1;
        std::map<std::string, std::vector<PaintedFrame>> painted;
        for (const ImportedAngle& angle : project->imported.angles)
            painted[angle.id] = paintedAngle(engine.source->document, angle.id);
        const Frames opening = settings.openingEnabled ? static_cast<Frames>(std::round(engine.frames(1))) : 0;
        UsableRanges plain;
        std::set<std::string> shown;
        FrameRange run;
        const auto endRun = [&] {
            if (shown.size() > 1)
                plain.offered.push_back(run);
            shown.clear();
        };
        for (Frames frame = 0; frame < engine.length; ++frame) {
            bool usable = false;
            const auto at = static_cast<std::size_t>(frame);
            for (const auto& [angle, frames] : painted)
                usable = usable || (frames[at].video && (frame < opening ? angle == settings.openingCamera
                                                                         : angle == settings.mainCamera ||
                                                                               settings.otherCameras.contains(angle)));
            usable = usable && painted[settings.audio][at].audio;
            if (!usable || frame != run.end) {
                endRun();
                run.start = frame;
            }
            run.end = usable ? frame + 1 : -1;
            for (const auto& [angle, frames] : painted) {
                if (usable && frames[at].video)
                    shown.insert(angle);
            }
        }
        endRun();
        const auto usable = usableRanges(project->imported, engine, settings);
        ASSERT_TRUE(usable);
        ASSERT_EQ(usable->offered, plain.offered) << "document " << number;
        ++checked;
        inPieces += usable->offered.size() > 1 ? 1U : 0U;
    }
    std::cout << checked << " documents, " << inPieces << " of them in pieces\n";
    EXPECT_GT(inPieces, 20U);
}

/// Puts times that cannot be exported, each of its own, into what hangs on the multicam clip.
std::string spoiled(std::string document, std::mt19937_64& random)
{
    const std::size_t clip = document.find("<mc-clip ");
    std::size_t at = document.find('>', clip);
    for (int number = 1;; ++number) {
        const std::size_t next = document.find("=\"", at);
        if (next == std::string::npos || next > document.find("</mc-clip>"))
            return document;
        const std::size_t name = document.find_last_of(" ", next) + 1;
        at = document.find('"', next + 2);
        const std::string attribute = document.substr(name, next - name);
        if ((attribute != "start" && attribute != "duration" && attribute != "offset") || random() % 8 != 0)
            continue;
        const std::string of = std::to_string(number);
        const bool isFade = document.compare(name - 5, 5, "adeIn ") == 0 || document.find("fade", name - 9) < name;
        const std::vector<std::string> times = {"x" + of + "s", "1/1000" + of + "s", "90000000000" + of + "s"};
        document.replace(next + 2, at - next - 2, times[isFade ? 0 : random() % times.size()]);
        at = document.find('"', next + 2);
    }
}

std::string refusalOfExport(const CutEngine& engine, const std::vector<Cut>& cuts, const std::string& audio)
{
    try {
        (void)roughEditXML(engine, cuts, audio);
        return "";
    } catch (const FinalCutImportError& refusal) {
        return refusal.what();
    }
}

std::string mended(std::string document, const RefusedSource& refused)
{
    if (!refused.item)
        return replaced(document, "<fcpxml", "<fcpxml version=\"1.11\"");
    for (const char* attribute : {"start", "duration", "offset"}) {
        const std::string time(refused.item->attribute(attribute).value_or(""));
        if (time.starts_with("x") || time.starts_with("1/1000") || time.starts_with("900000"))
            document = replaced(document, "\"" + time + "\"", "\"0s\"");
    }
    return document;
}

TEST(AnnouncedRefusals, AreExactlyWhatTheExportRefuses)
{
    int exported = 0;
    std::size_t refusedInAll = 0;
    for (std::uint64_t number = 0; number < 6000; ++number) {
        std::mt19937_64 random(number);
        std::string document = spoiled(randomText(number), random);
        if (random() % 16 == 0)
            document = replaced(document, " version=\"1.11\"", "");
        std::optional<std::vector<std::string>> expected;
        for (;;) {
            const auto project = loaded(document);
            if (!project)
                break;
            const CutEngine& engine = project->engine;
            const std::vector<FrameRange> whole = {{0, engine.length}};
            const auto isWhole = [&](const auto& angle) { return angle.second == whole; };
            const auto picture = std::ranges::find_if(engine.coverage, isWhole);
            const auto sound = std::ranges::find_if(engine.audioCoverage, isWhole);
            if (picture == engine.coverage.end() || sound == engine.audioCoverage.end() || engine.length < 4)
                break;
            const auto refused = refusedSources(engine, sound->first, 1'000);
            std::vector<std::string> refusals;
            std::ranges::transform(refused, std::back_inserter(refusals), &RefusedSource::refusal);
            ASSERT_EQ(refusals, expected.value_or(refusals)) << "document " << number;
            ASSERT_EQ(announcedRefusals(project->imported, engine, sound->first).size(), refusals.size());
            const std::vector<Cut> cuts = {{{}, picture->first, 0, engine.length}};
            ASSERT_EQ(refusalOfExport(engine, cuts, sound->first), refusals.empty() ? "" : refusals.front())
                << "document " << number;
            if (refused.empty()) {
                ++exported;
                break;
            }
            ++refusedInAll; // follow the advice: mend the first, and all the others are left
            expected = std::vector(refusals.begin() + 1, refusals.end());
            document = mended(document, refused[0]);
        }
    }
    std::cout << exported << " documents exported after " << refusedInAll << " refusals\n";
    EXPECT_GT(exported, 1000);
    EXPECT_GT(refusedInAll, 1000U);
}

TEST(ProjectCheck, TellsWhatIsWrongWhereAndWhatToDo)
{
    Parts parts;
    parts.inClip = R"(<mc-source angleID="A"><adjust-volume><param><fadeIn duration="5/2s"/></param></adjust-volume>
<adjust-transform scale="2 2"/><filter-video name="Color Board"/></mc-source>
<keyword start="251/50s" duration="1s" value="December 7th"/><marker start="8s" duration="x" value="a"/>
<title offset="soon" name="Name"/>)";
    parts.angles = angle("A", clip("0s", "40s")) + angle("B", clip("0s", "10s", "v") + clip("10s", "20s"));
    const LoadedProject project = loadProject(document(parts));
    EditSettings settings = startingSettings(project.imported, project.engine, {});
    settings.otherMinimum = 2; // shots are drawn that are shorter than the fade
    EXPECT_EQ(
        checkText(project.imported, project.engine, settings, checkProject(project.imported, project.engine, settings)),
        "The whole project can be cut.\n\n"
        "Title 'Name' has no readable offset (soon); the export will refuse it. Move or remove it in Final Cut and "
        "export XML again.\n"
        "Keyword 'December 7th' at 00:00:05:00 is not on a frame boundary; the export will refuse it. Move or remove "
        "it in Final Cut and export XML again.\n"
        "Marker 'a' at 00:00:08:00 has no readable duration (x); the export will refuse it. Move or remove it in Final "
        "Cut and export XML again.\n"
        "A fade of 2.5 s on A (Camera 1) needs an opening of at least 3 s.\n"
        "A and B hold the same recording, Both. A cut from one to the other changes nothing on screen: exclude all but "
        "one.\n"
        "Picture effects of the multicam clip sit on A only (Transform and Color Board). Shots of the other cameras "
        "will be without them.\n");
}

TEST(ProjectCheck, OffersTheRangesWithTimecodesAndTheBetterAudio)
{
    Parts parts;
    parts.angles = angle("A", clip("0s", "40s", "v")) + angle("B", clip("4s", "16s") + clip("501/25s", "10s")) +
                   angle("Late", clip("5s", "35s", "a")) + angle("Silent", "");
    parts.inClip = R"(<mc-source angleID="B" srcEnable="audio"/>)";
    const LoadedProject project = loadProject(document(parts));
    EditSettings settings = startingSettings(project.imported, project.engine, {});
    const auto check = checkProject(project.imported, project.engine, settings);
    EXPECT_EQ(
        usableLine(project.engine, settings, *check.usable),
        "Usable: 2 ranges, 65 % of the project; the longest 00:00:04:00 to 00:00:20:00");
    const std::string list = checkText(project.imported, project.engine, settings, check);
    EXPECT_NE(list.find("\n00:00:20:01\t00:00:30:01\t00:00:10:00\n"), std::string::npos) << list;
    EXPECT_NE(list.find("a single frame without footage or sound at 00:00:20:00.\n"), std::string::npos);
    settings.audio = "";
    const auto none = checkProject(project.imported, project.engine, settings);
    EXPECT_EQ(usableLine(project.engine, settings, *none.usable), "Usable: no range without continuous audio");
    EXPECT_EQ(percentText(1, 1000), "less than 1 %");
    EXPECT_EQ(percentText(999, 1000), "more than 99 %");
}

} // namespace
} // namespace corvane
