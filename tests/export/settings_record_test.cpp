#include "export/settings_record.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(SettingsRecord, TellsHowTheEditWasMade)
{
    CutEngine engine;
    engine.frameNumerator = 1001;
    engine.frameDenominator = 30000;
    engine.length = 3000;
    engine.timelineStart = 107892;
    engine.dropFrame = true;
    engine.coverage = {{"1", {{0, 3000}}}, {"2", {{0, 3000}}}, {"3", {{0, 3000}}}, {"mic", {}}};
    ImportedProject project;
    project.name = "Panel";
    for (const auto& [id, name] :
         std::vector<std::pair<std::string, std::string>>{{"1", "Wide"}, {"2", "Left"}, {"3", "Right"}, {"mic", "Mic"}})
        project.angles.push_back({.id = id, .name = name, .cameras = "", .firstRecording = {}});
    EditRevision edit;
    edit.id = Identifier::parse("8EA1E1D8-10E5-4872-9FF6-759FE19A759B").value();
    edit.created = {673934049};
    edit.settings.mainCamera = "1";
    edit.settings.otherCameras = {"2"};
    edit.settings.frequencies = {{"2", 7.5}};
    edit.settings.returnTimes = {{"1", 12}};
    edit.settings.audio = "mic";
    edit.settings.doubleMain = true;
    edit.settings.openingEnabled = true;
    edit.settings.openingCamera = "2";
    edit.settings.closingCamera = "3";
    edit.settings.sections = {{{}, "Prayer", "gone", "01:00:10;00", " 1:0:20:0"}};
    edit.cuts = {{{}, "2", 0, 450}, {{}, "2", 450, 50}, {{}, "1", 500, 2500}};
    EXPECT_EQ(settingsRecordText(project, engine, edit), R"(Corvane export settings
Project: Panel
Edit ID: 8EA1E1D8-10E5-4872-9FF6-759FE19A759B
Generated: 2022-05-11T03:54:09Z
Frame duration: 1001/30000 seconds
Project start: 01:00:00;00
Project duration: 100.1 seconds
Main camera: Wide
Target main screen time: 70.0%
Main shot range: 10.0 to 25.0 seconds
Other shot range: 4.0 to 8.0 seconds
Randomly double main holds: On (25% chance)
Continuous audio: Mic

Camera settings:
Wide: main, frequency 0.0, minimum return 12.0 seconds after previous hold ends
Left: included, frequency 7.5, minimum return 0.0 seconds after previous hold ends
Right: excluded from random cuts, frequency 0.0, minimum return 0.0 seconds after previous hold ends

Opening: Left, 15.0 seconds
Closing: Off
Fixed shots override minimum return times.

Fixed sections:
Prayer: 01:00:10;00 to  1:0:20:0, gone

Actual camera usage:
Wide: 83.42 seconds, 83.3%, 1 shots
Left: 16.68 seconds, 16.7%, 1 shots
Right: 0.00 seconds, 0.0%, 0 shots

Cut list (start timecode | camera | duration in seconds):
01:00:00;00 | Left | 15.015
01:00:15;00 | Left | 1.6683333333333332
01:00:16;20 | Wide | 83.41666666666667
)");
    edit.settings.doubleMain = false;
    edit.settings.sections.clear();
    const std::string plain = settingsRecordText(project, engine, edit);
    EXPECT_NE(plain.find("Randomly double main holds: Off\n"), std::string::npos);
    EXPECT_NE(plain.find("Fixed sections:\nNone\n\n"), std::string::npos);
}

} // namespace
} // namespace corvane
