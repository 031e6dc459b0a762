#include "session/starting_settings.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

struct Project {
    ImportedProject imported;
    CutEngine engine;
};

/// Angles with video and sound where their letters say so: "Av" has video, "Ba" sound, "Cva" both.
Project projectOf(const std::vector<std::string>& angles)
{
    Project project;
    project.engine.length = 100;
    for (const std::string& letters : angles) {
        const std::string id = letters.substr(0, 1);
        project.imported.angles.push_back({.id = id, .name = "", .cameras = "", .firstRecording = {}});
        const auto ranges = [&](char kind) {
            return letters.find(kind) == std::string::npos ? std::vector<FrameRange>()
                                                           : std::vector<FrameRange>{{0, 100}};
        };
        project.engine.coverage[id] = ranges('v');
        project.engine.audioCoverage[id] = ranges('a');
    }
    return project;
}

TEST(StartingSettings, PutTheCamerasOnScreenAndKeepThePacing)
{
    EditSettings current;
    current.mainShare = 55;
    current.openingSeconds = 3;
    current.openingEnabled = current.closingEnabled = true;
    current.returnTimes["A"] = current.frequencies["Z"] = 7;
    current.sections.resize(1);
    const Project project = projectOf({"Sa", "Av", "Bva", "Cv"});
    EditSettings expected;
    expected.mainShare = 55;
    expected.openingSeconds = 3;
    expected.mainCamera = expected.openingCamera = expected.closingCamera = "A";
    expected.otherCameras = {"B", "C"};
    expected.frequencies = {{"B", 5}, {"C", 5}};
    expected.audio = "S";
    EXPECT_EQ(startingSettings(project.imported, project.engine, current), expected);
    const Project oneCamera = projectOf({"Av", "Ba"});
    EXPECT_REFUSED(
        startingSettings(oneCamera.imported, oneCamera.engine), "Include at least two video angles in your multicam.");
}

TEST(StartingSettings, ChooseTheSoundThatTheProjectPlays)
{
    Project project = projectOf({"Ava", "Bva", "Cva"});
    project.engine.audioCoverage["A"] = {{0, 99}};
    const auto chosen = [&] { return defaultAudioAngle(project.imported, project.engine); };
    EXPECT_EQ(chosen(), "B") << "the first that plays throughout";
    project.engine.audioID = "C";
    EXPECT_EQ(chosen(), "C") << "the multicam clip's own, whatever others cover";
    project.engine.audioID = "nobody";
    project.engine.audioCoverage["B"] = project.engine.audioCoverage["C"] = {{0, 10}, {20, 100}};
    EXPECT_EQ(chosen(), "A") << "the first with any sound";
    project.engine.audioCoverage.clear();
    EXPECT_EQ(chosen(), "");
}

} // namespace
} // namespace corvane
