#include "import/angle_media_walker.h"
#include "import/clip_collector.h"
#include "import/cut_engine.h"
#include "support/documents.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvane {
namespace {

using namespace test;
using Ranges = std::vector<FrameRange>;
using Span = AngleMediaWalker::Span;

ImportedAngle firstAngle(const std::string& contents, const std::string& resources = "")
{
    return importProject(document({.angles = angle("A", contents) + angle("B", ""), .resources = resources}))
        .angles.front();
}

CutEngine engineWith(const std::string& contents, const std::string& resources = "")
{
    return buildEngine(document({.angles = angle("A", contents) + angle("B", ""), .resources = resources}));
}

TEST(Import, SummarisesTheProject)
{
    const ImportedProject project = importProject(document(
        {.angles = angle("A", clip("2s", "5s") + "<gap/>" + clip("1s", "5s", "", "", "v")) +
                   "<mc-angle angleID=\"B\">" + clip("0s", "1s", "", "", "lost") +
                   clip("0s", "1s", "name=\"Ätna\"", "", "gone") + "</mc-angle>",
         .inClip = R"(<mc-source angleID="A" srcEnable="video"/><mc-source angleID="B"/>)"}));
    EXPECT_EQ(
        project, (ImportedProject{
                     "Concert",
                     "1.11",
                     40,
                     1 / (100.0 / 2500),
                     {{"A", "A", "Camera 1", 2, 1, 1}, {"B", "Unnamed angle", "", 2, 0, 0}},
                     "Unnamed angle",
                     {"Lost", "Ätna"}}));
}

TEST(Import, FallsBackWhereNamesAreAbsent)
{
    const ImportedProject project =
        importProject(replaced(replaced(document({.inClip = ""}), " version=\"1.11\"", ""), "name=\"Concert\"", ""));
    EXPECT_EQ(project.name, "Untitled project");
    EXPECT_EQ(project.version, "Unknown");
    EXPECT_EQ(project.audioAngles, "Not specified");
}

TEST(Import, CountsClipsInsideContainersButNotDisabledOnes)
{
    EXPECT_EQ(
        firstAngle("<gap><spine>" + clip("0s", "1s") + clip("0s", "1s", "enabled=\"0\"") + "</spine></gap>").clipCount,
        1);
    EXPECT_EQ(firstAngle(clip("0s", "1s", "", clip("0s", "1s"))).clipCount, 1) << "clips connected to a clip";
    const std::string two = compound("c", clip("0s", "1s") + clip("0s", "1s"));
    EXPECT_EQ(firstAngle(refClip("c") + refClip("c"), two).clipCount, 4);
    EXPECT_EQ(firstAngle(refClip("c"), compound("c", clip("0s", "1s") + refClip("c"))).clipCount, 1);
    const auto clipThen = [](const std::string& id, const std::string& next) {
        return compound(id, clip("0s", "1s") + refClip(next));
    };
    EXPECT_EQ(
        firstAngle(refClip("c") + refClip("d"), clipThen("c", "d") + clipThen("d", "e") + clipThen("e", "c")).clipCount,
        6)
        << "each way into a circle goes around it once";
    EXPECT_EQ(firstAngle(refClip("c") + refClip("none") + "<ref-clip/>", compound("c", "")).clipCount, 0);
}

/// A reference counts as visited for the clips connected to it too, whatever was walked and kept before.
TEST(Import, TakesAReferenceAsVisitedForItsConnectedClips)
{
    const std::string two = compound("c", clip("0s", "1s") + clip("0s", "1s"));
    const std::string resources = two + compound("holds c", refClip("c") + clip("0s", "1s"));
    const auto connected = [](const std::string& to, const std::string& inside) {
        return "<ref-clip ref=\"" + to + "\">" + inside + "</ref-clip>";
    };
    const auto count = [&](const std::string& contents) { return firstAngle(contents, resources).clipCount; };
    EXPECT_EQ(count(connected("c", refClip("c"))), 2);
    EXPECT_EQ(count(connected("c", refClip("holds c"))), 3);
    EXPECT_EQ(count(refClip("holds c") + connected("c", refClip("holds c")) + refClip("holds c")), 9);
    EXPECT_EQ(count(connected("holds c", refClip("c"))), 5);
    EXPECT_EQ(count(connected("c", "<audition>" + connected("holds c", refClip("c")) + "</audition>")), 3);

    const std::string circular = "Camera A contains a missing or circular compound clip reference.";
    EXPECT_NO_THROW(engineWith(refClip("holds c") + connected("holds c", refClip("c")) + refClip("c"), resources));
    EXPECT_REFUSED(engineWith(connected("c", refClip("c")), resources), circular);
    EXPECT_REFUSED(engineWith(connected("c", refClip("holds c")) + refClip("holds c"), resources), circular);
    EXPECT_REFUSED(engineWith(refClip("holds c") + connected("c", refClip("holds c")), resources), circular);
    EXPECT_REFUSED(
        engineWith(refClip("d"), resources + compound("d", refClip("holds c") + connected("c", refClip("holds c")))),
        circular);
}

TEST(Import, LeavesOutTheClipsOfADisabledAngle)
{
    const std::string bytes = document(
        {.angles =
             "<mc-angle angleID=\"A\" enabled=\"0\">" + clip("0s", "40s") + "<gap/></mc-angle>" + angle("B", "")});
    const LoadedProject loaded = loadProject(bytes);
    const ImportedAngle& disabled = loaded.imported.angles.front();
    EXPECT_EQ(disabled.clipCount, 0);
    EXPECT_EQ(disabled.gapCount, 1);
    EXPECT_EQ(disabled.firstRecording, std::nullopt);
    EXPECT_EQ(loaded.engine.coverage.at("A"), (Ranges{{0, 1000}})) << "only the summary looks at the angle's own state";
}

TEST(Import, WalksEachCompoundClipOnce)
{
    // Each compound clip uses the next one twice: the count doubles at every level, the work does not.
    std::string resources;
    constexpr int levels = 40;
    for (int n = 0; n < levels; ++n)
        resources += compound(
            "c" + std::to_string(n), refClip("c" + std::to_string(n + 1)) + refClip("c" + std::to_string(n + 1)));
    resources += compound("c40", clip("3s", "1s"));
    const auto parsed = xml::Document::parse("<resources>" + resources + refClip("c0") + "</resources>");
    const MediaResources media(*parsed.root());
    ClipCollector collector(media);
    collector.begin(*parsed.root(), "A");
    collector.add(*parsed.root()->firstChild("ref-clip"));
    const AngleClips clips = collector.finish();
    EXPECT_EQ(clips.count, std::int64_t{1} << levels);
    EXPECT_EQ(clips.firstOffset, 3);
    EXPECT_LE(collector.visits(), 5 * levels);
}

TEST(Import, RefusesCirclesOfCompoundClipsThatTakeTooLong)
{
    // Sixteen compound clips that all use each other have more paths than anyone can walk.
    std::string all, resources;
    for (int n = 0; n < 16; ++n)
        all += refClip("c" + std::to_string(n));
    for (int n = 0; n < 16; ++n)
        resources += compound("c" + std::to_string(n), all);
    EXPECT_REFUSED(
        firstAngle(refClip("c0"), resources),
        "Camera A uses compound clips inside each other too many times to be read. Break apart these compound clips "
        "in Final Cut and export XML again.");
}

TEST(Walker, KeepsOneWalkOfACompoundClip)
{
    const auto levelled = [](int uses, int levels) {
        std::string resources;
        for (int n = 0; n < levels; ++n) {
            std::string contents;
            for (int use = 0; use < uses; ++use)
                contents += refClip("c" + std::to_string(n + 1));
            resources += compound("c" + std::to_string(n), contents);
        }
        return xml::Document::parse(
            "<resources>" + resources + compound("c" + std::to_string(levels), "<video ref=\"v\"/>") +
            "<asset id=\"v\" hasVideo=\"1\" src=\"x\" duration=\"1s\"/>" + refClip("c0") + "</resources>");
    };
    const auto twice = levelled(2, 18);
    const MediaResources media(*twice.root());
    AngleMediaWalker walker(media);
    const auto spans = walker.walk(*twice.root()->firstChild("ref-clip"), "A");
    EXPECT_EQ(spans.size(), std::size_t{1} << 18U);
    EXPECT_EQ(spans.back(), (Span{0, 1, true, false}));
    EXPECT_GE(walker.visits(), 2 * 18);
    EXPECT_LE(walker.visits(), 5 * 18);
    // A level deeper the kept walk does not fit below level 39 any more; many more uses are refused.
    const auto deeper = levelled(2, 19);
    const MediaResources deeperMedia(*deeper.root());
    EXPECT_REFUSED(
        AngleMediaWalker(deeperMedia).walk(*deeper.root()->firstChild("ref-clip"), "A"),
        "Camera A contains excessively nested clips.");
    EXPECT_NO_THROW((void)AngleMediaWalker(media).walk(*twice.root()->firstChild("ref-clip"), "A", {}, 1));
    EXPECT_REFUSED(
        AngleMediaWalker(media).walk(*twice.root()->firstChild("ref-clip"), "A", {}, 2),
        "Camera A contains excessively nested clips.");
    EXPECT_REFUSED(
        AngleMediaWalker(media).walk(*twice.root()->firstChild("ref-clip"), "A", {"c0"}),
        "Camera A contains a missing or circular compound clip reference.");
    const auto wide = levelled(9, 12);
    const MediaResources wideMedia(*wide.root());
    EXPECT_REFUSED(
        AngleMediaWalker(wideMedia).walk(*wide.root()->firstChild("ref-clip"), "A"),
        "Camera A uses compound clips inside each other too many times to be read. Break apart these compound clips "
        "in Final Cut and export XML again.");
}

TEST(Engine, MapsMediaIntoProjectFrames)
{
    EXPECT_EQ(engineWith(clip("10s", "20s", "start=\"100s\"")).coverage.at("A"), (Ranges{{250, 750}}));
    EXPECT_EQ(
        engineWith("<spine offset=\"1s\" start=\"2s\" duration=\"2s\">" + clip("0s", "5s") + "</spine>")
            .coverage.at("A"),
        (Ranges{{25, 75}}));
    EXPECT_EQ(engineWith("<audio ref=\"av\"/>").coverage.at("A"), (Ranges{}));
    EXPECT_EQ(engineWith("<audio ref=\"av\"/>").audioCoverage.at("A"), (Ranges{{0, 1000}}));
    EXPECT_EQ(engineWith("<video ref=\"av\"/>").audioCoverage.at("A"), (Ranges{}));
    EXPECT_EQ(engineWith(clip("0s", "9s", "srcEnable=\"audio\"")).coverage.at("A"), (Ranges{}));
    EXPECT_EQ(
        engineWith("<gap duration=\"9s\" srcEnable=\"none\">" + clip("0s", "9s") + "</gap>").audioCoverage.at("A"),
        (Ranges{}));
    EXPECT_EQ(engineWith(clip("0s", "9s", "enabled=\"0\"", "<timeMap/>", "gone")).coverage.at("A"), (Ranges{}));
    // A connected clip that hangs over its parent is cut to it.
    EXPECT_EQ(
        engineWith(clip("0s", "2s", "", clip("1s", "5s", "", "", "v"), "a")).coverage.at("A"), (Ranges{{25, 50}}));
    const CutEngine used =
        engineWith("<ref-clip ref=\"c\" offset=\"4s\" start=\"1s\" duration=\"2s\"/>", compound("c", clip("2s", "9s")));
    EXPECT_EQ(used.coverage.at("A"), (Ranges{{125, 150}}));
}

TEST(Engine, RoundsPartialFramesAwayWithAMillionthOfTolerance)
{
    EXPECT_EQ(engineWith(clip("1/50s", "1s")).coverage.at("A"), (Ranges{{1, 25}}));
    EXPECT_EQ(engineWith(clip("0s", "0.99999998s")).coverage.at("A"), (Ranges{{0, 25}}));
    EXPECT_EQ(engineWith(clip("0s", "0.9999s")).coverage.at("A"), (Ranges{{0, 24}}));
    EXPECT_EQ(engineWith(clip("1/50s", "1/50s")).coverage.at("A"), (Ranges{}));
    EXPECT_EQ(
        engineWith(clip("0s", "1s") + clip("1s", "1s") + clip("51/25s", "99s")).coverage.at("A"),
        (Ranges{{0, 50}, {51, 1000}}));
}

TEST(Engine, CountsFromTheClipsStart)
{
    const std::string shifted = replaced(
        replaced(
            replaced(
                document(), "offset=\"0s\" start=\"0s\" duration=\"40s\">",
                "offset=\"3600s\" start=\"7s\" duration=\"40s\">"),
            "duration=\"40s\" tcStart=\"0s\"", "duration=\"40s\" tcStart=\"3600s\" tcFormat=\"DF\""),
        "<multicam format=\"r1\" tcStart=\"0s\"", "<multicam format=\"r1\" tcStart=\"5s\"");
    const CutEngine engine = buildEngine(shifted);
    EXPECT_EQ(engine.timelineStart, 90'000);
    EXPECT_EQ(engine.sourceStart, 175);
    EXPECT_TRUE(engine.dropFrame);
    EXPECT_EQ(engine.coverage.at("A"), (Ranges{{0, 950}}));
}

TEST(Engine, TakesItsSoundFromTheOneSourceThatHasIt)
{
    const auto audioID = [](const std::string& sources) { return buildEngine(document({.inClip = sources})).audioID; };
    EXPECT_EQ(audioID(R"(<mc-source angleID="A" srcEnable="video"/><mc-source angleID="B" srcEnable="audio"/>)"), "B");
    EXPECT_EQ(audioID(R"(<mc-source angleID="A"/><mc-source angleID="B" srcEnable="audio"/>)"), "");
    EXPECT_EQ(audioID(R"(<mc-source angleID="A" srcEnable="none"/>)"), "");
}

TEST(Engine, ComparesFormatsAndNotTheirNames)
{
    const auto matches = [](const std::string& a, const std::string& b) {
        const auto parsed = xml::Document::parse("<r><format id=\"1\" " + a + "/><format id=\"2\" " + b + "/></r>");
        auto each = parsed.root()->children().begin();
        const xml::Element first = *each++;
        return formatsMatch(first, *each);
    };
    const std::string rate = "frameDuration=\"1001/30000s\" ";
    EXPECT_TRUE(matches(
        rate + "colorSpace=\"1-1-1 (Rec. 709)\"",
        "frameDuration=\"2002/60000s\" colorSpace=\"1-1-1\" fieldOrder=\"progressive\" paspH=\"1\""));
    EXPECT_FALSE(matches(rate, "frameDuration=\"1/30s\""));
    EXPECT_FALSE(matches(rate + "height=\"1080\"", rate + "height=\"720\""));
    EXPECT_FALSE(matches(rate + "colorSpace=\"\"", rate));
    EXPECT_FALSE(matches(rate, rate + "stereoscopic=\"mono\""));
    EXPECT_FALSE(matches("frameDuration=\"9223372036854775807/3s\"", "frameDuration=\"9223372036854775807/2s\""));
}

TEST(Engine, KeepsItsDocumentAlive)
{
    std::optional<CutEngine> copy;
    {
        const CutEngine engine = buildEngine(document());
        copy = engine;
    }
    EXPECT_EQ(copy->source->project.attribute("name"), "Concert");
    EXPECT_EQ(copy->source->audioSource->attribute("angleID"), "A");
}

TEST(FrameRanges, MergeTouchingAndKeepAGapOfOneFrame)
{
    //  0    5    10
    //  [----)           a
    //       [---)       b touches a
    //            [--)   c starts one frame later
    EXPECT_EQ(normalizeRanges({{10, 12}, {0, 5}, {5, 9}, {1, 3}}), (Ranges{{0, 9}, {10, 12}}));
}

} // namespace
} // namespace corvane
