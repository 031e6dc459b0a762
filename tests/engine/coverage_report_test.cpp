#include "engine/coverage_report.h"
#include "support/engine_builder.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;
using Ranges = std::vector<FrameRange>;

TEST(CameraUsage, CountsCutsThatTouchOnOneCameraAsOneShot)
{
    EXPECT_EQ(
        cameraUsage(
            {{{}, "A", 0, 100}, {{}, "B", 100, 50}, {{}, "A", 150, 150}, {{}, "A", 300, 10}, {{}, "A", 311, 5}}),
        (UsageByCamera{{"A", {"A", 265, 3}}, {"B", {"B", 50, 1}}}));
}

TEST(UncoveredVideoSections, CountOnlyTheFixedCameraInsideBookendsAndSections)
{
    const CutEngine engine = engineOf(2, {{"A", {{0, 600}}}, {"B", {{200, 1000}}}, {"C", {{50, 350}, {940, 1000}}}});
    const std::optional<BookendShot> opening = {{"C", 50}};
    const std::optional<BookendShot> closing = {{"C", 49.75}}; // 99.5 frames round to 100
    const CoverageReport report =
        uncoveredVideoSections(engine, {"A", "B", "unknown"}, opening, closing, {{"C", 300, 350}});
    EXPECT_EQ(report.message, std::nullopt);
    const Ranges covered = {{100, 300}, {200, 300}, {300, 350}, {350, 600}, {350, 900}, {50, 100}, {940, 1000}};
    EXPECT_EQ(report.covered, covered);
    // Lengths that no generation would take: a frame at least, and together no more than the project.
    EXPECT_EQ(uncoveredVideoSections(engine, {}, BookendShot{"A", 0}, {}, {}).covered, (Ranges{{0, 1}}));
    const CoverageReport filled = uncoveredVideoSections(engine, {}, BookendShot{"A", 250}, BookendShot{"B", 250}, {});
    EXPECT_EQ(filled, (CoverageReport{{{0, 500}, {500, 1000}}, {}}));
}

/// 40 s from 01:00:00:00. A is the main camera, B the other; C is not included.
struct OneEdit {
    ImportedProject project;
    CutEngine engine;
    EditSettings settings;

    explicit OneEdit(Coverage coverage) : engine(engineOf(25, std::move(coverage), 1000))
    {
        engine.timelineStart = 90'000;
        for (const char* id : {"A", "B", "C"})
            project.angles.push_back({.id = id, .name = {}, .cameras = {}, .firstRecording = {}});
        settings.mainCamera = "A";
        settings.otherCameras = {"B"};
    }

    [[nodiscard]] std::string warning(std::string_view decimalSign = ".") const
    {
        return setupWarning(project, engine, settings, decimalSign).value_or("none");
    }
};

TEST(SetupWarning, NamesTheFirstGapInTheSelectedVideo)
{
    const std::string advice = " seconds). Choose a camera with footage or trim that section in Final Cut.";
    OneEdit edit({{"A", {{0, 100}, {900, 975}}}, {"B", {{137, 500}}}, {"C", {{0, 1000}}}});
    EXPECT_EQ(edit.warning(), "No selected video: 01:00:04:00 to 01:00:05:12 (1.48" + advice);
    EXPECT_EQ(edit.warning(","), "No selected video: 01:00:04:00 to 01:00:05:12 (1,48" + advice);
    edit.engine.coverage["B"] = {{90, 910}};
    EXPECT_EQ(edit.warning(), "No selected video at the ending: 01:00:39:00 to 01:00:40:00 (1" + advice);
    edit.settings.otherCameras = {"C"};
    EXPECT_EQ(edit.warning(), "none");
}

TEST(SetupWarning, TellsWhatIsWrongWithBookendsAndSectionsBeforeTheGaps)
{
    OneEdit edit({{"A", {{0, 900}}}, {"B", {{0, 500}}}});
    edit.settings.openingEnabled = edit.settings.closingEnabled = true;
    edit.settings.openingCamera = edit.settings.closingCamera = "A";
    edit.settings.openingSeconds = 20;
    edit.settings.closingSeconds = 20.04;
    EXPECT_EQ(edit.warning(), "Opening and closing shots exceed the project length. Shorten them.");
    edit.settings.closingEnabled = false;
    edit.settings.sections = {{{}, "", "B", "01:00:20:00", "01:00:20:01"}};
    EXPECT_EQ(
        edit.warning(), "The camera chosen for a fixed section has missing footage between 01:00:20:00 and "
                        "01:00:20:01. Choose another camera or shorten the section.");
    edit.settings.sections[0].start = "soon";
    EXPECT_EQ(edit.warning(), "Enter timecode as HH:MM:SS:FF, for example 00:05:30:00.");
}

TEST(SetupWarning, NamesTheFirstGapInTheSoundOnceTheVideoIsWhole)
{
    OneEdit edit({{"A", {{0, 1000}}}, {"B", {{0, 500}}}});
    edit.engine.audioCoverage = {
        {"early", {{0, 900}}}, {"late", {{1, 1000}}}, {"gap", {{0, 9}, {10, 1000}}}, {"whole", {{0, 1000}}}};
    const std::pair<const char*, const char*> gaps[] = {
        {"early", "01:00:36:00"}, {"late", "01:00:00:00"}, {"gap", "01:00:00:09"}, {"unknown", "01:00:00:00"}};
    for (const auto& [audio, at] : gaps) {
        edit.settings.audio = audio;
        EXPECT_EQ(
            edit.warning(), std::string("Selected audio has a gap at ") + at + ". Choose a continuous audio angle.");
        EXPECT_REFUSED(
            checkContinuousAudio(edit.engine, audio),
            "This audio angle does not cover the whole project. Choose a continuous audio angle.");
    }
    edit.settings.audio = "whole";
    EXPECT_EQ(edit.warning(), "none");
    EXPECT_NO_THROW(checkContinuousAudio(edit.engine, "whole"));
    edit.settings.audio = ""; // none chosen yet
    EXPECT_EQ(edit.warning(), "none");
}

} // namespace
} // namespace corvane
