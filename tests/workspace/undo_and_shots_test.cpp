#include "import/project_loading.h"
#include "support/documents.h"
#include "support/test_window.h"
#include "workspace/captions.h"
#include "workspace/commands.h"
#include "workspace/shot_facts.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;

/// A has a gap from 20 s to 30 s; the project has 1000 frames.
const std::string withGap =
    document({angle("A", clip("0s", "20s") + clip("30s", "10s")) + angle("B", clip("0s", "40s"))});

TEST(ShotFacts, TellWhyShotsEnd)
{
    TestWindow window;
    ContentView& view = window.view();
    view.importXML(withGap);
    window.set([](auto& settings) {
        settings.audio = "B";
        settings.openingEnabled = true;
        settings.openingSeconds = 4;
        settings.closingEnabled = true;
        settings.closingSeconds = 5;
        settings.closingCamera = "B";
        settings.sections = {{{}, "Prayer", "B", "00:00:08:00", "00:00:12:00"}};
    });
    view.generateRoughEdit();
    const EditMarks marks = editMarks(view);
    // Every reason once, and one end that nothing explains.
    window.showCuts(
        {{{}, "A", 0, 100},
         {{}, "B", 100, 50},
         {{}, "A", 150, 50},
         {{}, "B", 200, 100},
         {{}, "A", 300, 200},
         {{}, "B", 500, 375},
         {{}, "B", 875, 125}});
    const std::vector<std::optional<std::string>> reasons = {"The opening shot ends.",     std::nullopt,
                                                             "A fixed section begins.",    "The fixed section ends.",
                                                             "The camera's footage ends.", "The closing shot begins.",
                                                             "Ends with the project."};
    for (std::size_t i = 0; i < reasons.size(); ++i)
        EXPECT_EQ(shotEndReason(window.state().loaded->engine, window.state().cuts(), marks, i), reasons[i]) << i;
    // At least 10 seconds on A and 4 on B, where nothing else was asked for.
    EXPECT_EQ(shortShots(view, marks), (std::vector<std::size_t>{1, 2, 4}));
    EXPECT_EQ(shortShotsText(1), "1 shot is shorter than your minimum");
    EXPECT_TRUE(cutListText(view, ",").starts_with("Start (Timecode)\tCamera\tDuration (seconds)\n"
                                                   "00:00:00:00\tA (Camera 1)\t4\n00:00:04:00\tB (Camera 1)\t2\n"));
    EXPECT_NE(cutListText(view).find("\n00:00:00:00\tOpening shot. "), std::string::npos) << "with the reasons";
    window.importAndGenerate(replaced(document(), "\"A\"", "\"A&#9;&#10;\""));
    EXPECT_NE(cutListText(view).find("00:00:00:00\tA⇥↵ (Camera 1)\t"), std::string::npos) << "still a table";
}

TEST(Words, TellCoverageAndWhatIsLeftBehind)
{
    TestWindow window;
    ContentView& view = window.view();
    view.importXML(withGap);
    const CutEngine& engine = window.state().loaded->engine;
    EXPECT_EQ(
        footageInWords(engine, engine.videoRanges("A")),
        "Footage: 00:00:00:00 to 00:00:20:00, 00:00:30:00 to 00:00:40:00. No footage: 00:00:20:00 to 00:00:30:00.");
    EXPECT_EQ(footageInWords(engine, {}), "No footage: 00:00:00:00 to 00:00:40:00.");
    std::vector<FrameRange> many;
    for (Frames frame = 0; frame < 1000; frame += 20)
        many.push_back({frame, frame + 10});
    EXPECT_EQ(footageInWords(engine, many).find("more"), std::string::npos) << "fifty with, fifty without footage";
    many.insert(many.begin(), {{0, 2}, {3, 5}});
    EXPECT_NE(footageInWords(engine, many).find(" and 2 more. No footage: "), std::string::npos);
    EXPECT_EQ(
        carryOverLine(
            buildEngine(document({.inClip = R"(<filter-video/><adjust-crop/><filter-video/><note/><x:mark xmlns:x="u"/>
                <mc-source angleID="A"><tracking-shape id="a"/><x tracking="a"/><y id="s"/></mc-source>
                <mc-source angleID="B"><x tracking="a"/></mc-source>
                <title name="T"><y tracking="a"/></title><title name="U"><z tracking="s"/></title>)"}))),
        "Not carried over from the multicam clip: filter-video, adjust-crop, x:mark. Following a shape of another "
        "clip: angle B, title T.");
    EXPECT_EQ(angleFacts(window.state().loaded->imported.angles[0]), "Camera 1 · 2 clips · 0 gaps");
    view.importXML(
        document({angle("A", clip("0s", "20s") + "<gap duration=\"20s\"/>") + angle("B", clip("0s", "40s"))}));
    EXPECT_EQ(angleFacts(window.state().loaded->imported.angles[0]), "Camera 1 · 1 clip · 1 gap");
    view.importXML(document({.inClip = R"(<mc-source angleID="A" srcEnable="all"/>
        <marker start="10s" duration="1/25s" value="Sermon"/><chapter-marker start="5s" value="Choir"/>
        <marker start="soon" value="lost"/><marker start="1/26s" value="lost"/><marker value="lost"/>
        <marker start="40s" value="behind the end"/><keyword start="1s" value="no marker"/><marker start="0s"/>)"}));
    ASSERT_EQ(window.state().error, std::nullopt) << "none is a refusal";
    const CutEngine& marked = window.state().loaded->engine;
    EXPECT_EQ(clipMarkers(marked), (std::vector<ClipMarker>{{0, ""}, {125, "Choir"}, {250, "Sermon"}}));
}

} // namespace
} // namespace corvane
