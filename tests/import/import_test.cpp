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

const std::string useOfFirst = "<ref-clip ref=\"c0\"/>";

/// Compound clips "c0" to the last level, each of which uses the next one so many times. The last one holds a clip from
/// 3 s to 4 s.
std::string levelled(int uses, int levels)
{
    std::string resources;
    for (int n = 0; n <= levels; ++n) {
        std::string contents = n < levels ? "" : clip("3s", "1s");
        for (int use = 0; use < uses && n < levels; ++use)
            contents += "<ref-clip ref=\"c" + std::to_string(n + 1) + "\"/>";
        resources +=
            "<media id=\"c" + std::to_string(n) + "\"><sequence><spine>" + contents + "</spine></sequence></media>";
    }
    return resources;
}

/// A document of nothing but these and a clip that uses the first one.
struct Compounds {
    Compounds(int uses, int levels)
        : document(xml::Document::parse(
              "<resources><asset id=\"av\" hasVideo=\"1\" src=\"x\" duration=\"9s\"/>" + levelled(uses, levels) +
              useOfFirst + "</resources>"))
    {
    }
    xml::Document document;
    MediaResources media{*document.root()};
    xml::Element use = *document.root()->firstChild("ref-clip");
};

TEST(ClipCollector, WalksEachCompoundClipOnce)
{
    // The count doubles at every level, the work does not.
    const Compounds doubled(2, 40);
    ClipCollector collector(doubled.media);
    collector.begin(*doubled.document.root(), "A");
    collector.add(doubled.use);
    const AngleClips clips = collector.finish();
    EXPECT_EQ(clips.count, std::int64_t{1} << 40U);
    EXPECT_EQ(clips.firstOffset, 3);
    EXPECT_LE(collector.visits(), 5 * 40);
    const auto count = [](int levels) {
        return importProject(
                   document({.angles = angle("A", useOfFirst) + angle("B", ""), .resources = levelled(2, levels)}))
            .angles.front()
            .clipCount;
    };
    EXPECT_EQ(count(62), std::int64_t{1} << 62U);
    EXPECT_REFUSED(count(63), tooManyUses);
}

TEST(Walker, KeepsOneWalkOfACompoundClip)
{
    const std::string tooDeep = "Camera A contains excessively nested clips.";
    const Compounds twice(2, 18);
    AngleMediaWalker walker(twice.media);
    const auto spans = walker.walk(twice.use, "A");
    EXPECT_EQ(spans.size(), std::size_t{1} << 18U);
    EXPECT_EQ(spans.back(), (Span{3, 4, true, false}));
    EXPECT_GE(walker.visits(), 2 * 18);
    EXPECT_LE(walker.visits(), 5 * 18);
    // A level deeper the kept walk does not fit below level 39 any more; many more uses are refused.
    const Compounds deeper(2, 19);
    EXPECT_REFUSED(AngleMediaWalker(deeper.media).walk(deeper.use, "A"), tooDeep);
    EXPECT_NO_THROW((void)AngleMediaWalker(twice.media).walk(twice.use, "A", {}, 1));
    EXPECT_REFUSED(AngleMediaWalker(twice.media).walk(twice.use, "A", {}, 2), tooDeep);
    for (const char* onTheWay : {"c0", "c9"})
        EXPECT_REFUSED(
            walker.walk(twice.use, "A", {onTheWay}),
            "Camera A contains a missing or circular compound clip reference.");
    const Compounds wide(9, 12);
    EXPECT_REFUSED(AngleMediaWalker(wide.media).walk(wide.use, "A"), tooManyUses);
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
