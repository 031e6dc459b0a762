#include "export/carry_over.h"
#include "export/rough_edit_writer.h"
#include "platform/xml_tree.h"
#include "support/documents.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

#include <set>

namespace corvane {
namespace {

using namespace test;

CutEngine engineWith(const std::string& inClip, const std::string& resources = "")
{
    return buildEngine(document({.resources = resources, .inClip = inClip}));
}

/// Cuts with ids 1, 2 … that start at these frames and end at 1000.
std::vector<Cut> cutsAt(const std::vector<std::pair<std::string, Frames>>& starts)
{
    std::vector<Cut> cuts;
    for (std::size_t n = 0; n < starts.size(); ++n) {
        Cut cut = {{}, starts[n].first, starts[n].second, 0};
        cut.id.bytes[0] = static_cast<std::uint8_t>(n + 1);
        cut.duration = (n + 1 < starts.size() ? starts[n + 1].second : 1000) - cut.start;
        cuts.push_back(cut);
    }
    return cuts;
}

TEST(RoughEdit, GivesTrackingShapesNewIdsInEveryPiece)
{
    const CutEngine engine = engineWith(
        R"(<mc-source angleID="B"><object-tracker><tracking-shape id="a"/><tracking-shape id="b"/></object-tracker>
            <x tracking="b"/><x tracking="elsewhere"/></mc-source><title name="T" tracking="b"><y tracking="a"/></title>)");
    const std::string written = roughEditXML(engine, cutsAt({{"B", 0}, {"A", 300}, {"B", 600}}), "B");
    const xml::Document document = xml::Document::parse(written);
    std::set<std::string_view> ids;
    std::size_t following = 0, shapes = 0;
    for (const xml::Element element : document.root()->firstChild("project")->descendants()) {
        if (element.named("tracking-shape")) {
            ids.insert(*element.attribute("id"));
            ++shapes;
        }
        if (element.named("x") && ids.contains(*element.attribute("tracking")))
            ++following;
    }
    EXPECT_EQ(shapes, 4U);
    EXPECT_EQ(ids.size(), 4U);
    EXPECT_EQ(following, 2U);
    for (const std::string_view id : ids)
        EXPECT_EQ(id.substr(0, 7), "cvtrack");
    EXPECT_EQ(carryOver(engine).lostTracking, std::vector<std::string>{"title T"});
    const CutEngine acrossAngles = engineWith(
        R"(<mc-source angleID="A"><tracking-shape id="a"/><y id="s"/></mc-source>
            <mc-source angleID="B"><x tracking="a"/></mc-source><title name="T"><z tracking="s"/></title>)");
    EXPECT_EQ(carryOver(acrossAngles).lostTracking, std::vector<std::string>{"angle B"});
    EXPECT_EQ(
        carryOver(engineWith("<filter-video/><adjust-crop/><filter-video/><note/>")).leftOut,
        (std::vector<std::string>{"filter-video", "adjust-crop"}));
}

TEST(RoughEdit, KeepsEveryByteOfMeaning)
{
    const std::string element =
        "<x:note xmlns:x=\"u\" x:a=\"&quot;&#10;é\"><!-- c --><![CDATA[<&]]> 日 <b> </b></x:note>";
    std::string source = document({.resources = element, .inClip = "<metadata>" + element + "</metadata>"});
    source = replaced(replaced(source, "<fcpxml ", "<fcpxml xmlns:y=\"v\" "), "<library", "<library xmlns:z=\"w\"");
    source = replaced(source, "<spine>", "<y:other/><z:other/>and text<spine>");
    const std::string written = roughEditXML(buildEngine(source), cutsAt({{"A", 0}, {"B", 500}}), "A");
    std::size_t copies = 0;
    for (std::size_t at = written.find(element); at != std::string::npos; at = written.find(element, at + 1))
        ++copies;
    EXPECT_EQ(copies, 3U) << written;
    EXPECT_NE(written.find("<y:other"), std::string::npos);
    EXPECT_NE(written.find("xmlns:z=\"w\""), std::string::npos) << "declared by what is left out";
    EXPECT_NE(written.find("and text<spine>"), std::string::npos);
    EXPECT_EQ(written.find("<!DOCTYPE"), std::string::npos);
    EXPECT_NO_THROW((void)xml::Document::parse(written));
}

} // namespace
} // namespace corvane
