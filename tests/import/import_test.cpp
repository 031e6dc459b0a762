#include "import/angle_media_walker.h"
#include "import/clip_collector.h"
#include "import/cut_engine.h"
#include "support/documents.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;
using Span = AngleMediaWalker::Span;

const std::string tooManyUses = "Camera A uses compound clips inside each other too many times to be read. Break apart "
                                "these compound clips in Final Cut and export XML again.";

ImportedAngle firstAngle(const std::string& contents, const std::string& resources = "")
{
    return importProject(document({.angles = angle("A", contents) + angle("B", ""), .resources = resources}))
        .angles.front();
}

CutEngine engineWith(const std::string& contents, const std::string& resources = "")
{
    return buildEngine(document({.angles = angle("A", contents) + angle("B", ""), .resources = resources}));
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
        engineWith(
            refClip("holds c") + connected("d", refClip("holds c") + connected("c", refClip("holds c"))),
            resources + compound("d", "")),
        circular)
        << "not found by the first search, among the clips of d";
    EXPECT_REFUSED(
        engineWith(refClip("d"), resources + compound("d", refClip("holds c") + connected("c", refClip("holds c")))),
        circular);
}

TEST(Import, WalksEachCompoundClipOnce)
{
    // Each compound clip uses the next one twice: the count doubles at every level, the work does not.
    const auto doubled = [](int levels) {
        std::string resources;
        for (int n = 0; n < levels; ++n) {
            const std::string next = refClip("c" + std::to_string(n + 1));
            resources += compound("c" + std::to_string(n), next + next);
        }
        return resources + compound("c" + std::to_string(levels), clip("3s", "1s"));
    };
    const auto parsed = xml::Document::parse("<resources>" + doubled(40) + refClip("c0") + "</resources>");
    const MediaResources media(*parsed.root());
    ClipCollector collector(media);
    collector.begin(*parsed.root(), "A");
    collector.add(*parsed.root()->firstChild("ref-clip"));
    const AngleClips clips = collector.finish();
    EXPECT_EQ(clips.count, std::int64_t{1} << 40U);
    EXPECT_EQ(clips.firstOffset, 3);
    EXPECT_LE(collector.visits(), 5 * 40);
    EXPECT_EQ(firstAngle(refClip("c0"), doubled(62)).clipCount, std::int64_t{1} << 62U);
    EXPECT_REFUSED(firstAngle(refClip("c0"), doubled(63)), tooManyUses);
}

TEST(Import, RefusesCirclesOfCompoundClipsThatTakeTooLong)
{
    // Sixteen compound clips that all use each other have more paths than anyone can walk.
    std::string all, resources;
    for (int n = 0; n < 16; ++n)
        all += refClip("c" + std::to_string(n));
    for (int n = 0; n < 16; ++n)
        resources += compound("c" + std::to_string(n), all);
    EXPECT_REFUSED(firstAngle(refClip("c0"), resources), tooManyUses);
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
    for (const char* onTheWay : {"c0", "c9"})
        EXPECT_REFUSED(
            walker.walk(*twice.root()->firstChild("ref-clip"), "A", {onTheWay}),
            "Camera A contains a missing or circular compound clip reference.");
    const auto wide = levelled(9, 12);
    const MediaResources wideMedia(*wide.root());
    EXPECT_REFUSED(AngleMediaWalker(wideMedia).walk(*wide.root()->firstChild("ref-clip"), "A"), tooManyUses);
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

} // namespace
} // namespace corvane
