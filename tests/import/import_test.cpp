#include "import/angle_media_walker.h"
#include "import/clip_collector.h"
#include "import/cut_engine.h"
#include "import/project_import.h"
#include "import/project_loading.h"
#include "import/source_document.h"
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

TEST(CompoundClips, AreCountedAndWalkedAsOftenAsTheyAreUsed)
{
    const auto count = [](int levels) {
        return importProject(
                   document({.angles = angle("A", useOfFirst) + angle("B", ""), .resources = levelled(2, levels)}))
            .angles.front()
            .clipCount;
    };
    EXPECT_EQ(count(18), 1 << 18);
    EXPECT_REFUSED(count(62), tooManyUses);
    const std::string tooDeep = "Camera A contains excessively nested clips.";
    const Compounds twice(2, 18);
    VisitBudget budget;
    AngleMediaWalker walker(twice.media, budget);
    const auto spans = walker.walk(twice.use, "A");
    EXPECT_EQ(spans.size(), std::size_t{1} << 18U);
    EXPECT_EQ(spans.back(), (Span{3, 4, true, false}));
    // Below level 39 nothing is walked any more.
    EXPECT_NO_THROW((void)walker.walk(twice.use, "A", {}, 1));
    EXPECT_REFUSED(walker.walk(twice.use, "A", {}, 2), tooDeep);
    for (const char* onTheWay : {"c0", "c9"})
        EXPECT_REFUSED(
            walker.walk(twice.use, "A", {onTheWay}),
            "Camera A contains a missing or circular compound clip reference.");
    const Compounds wide(9, 12);
    EXPECT_REFUSED(AngleMediaWalker(wide.media, budget).walk(wide.use, "A"), tooManyUses);
    const Compounds chain(1, 600); // two levels each
    EXPECT_REFUSED(
        ClipCollector(chain.media, budget = {}).collect(*chain.document.root(), "A", [](xml::Element) {}), tooManyUses);
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
