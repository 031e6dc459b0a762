#include "export/rough_edit_writer.h"
#include "import/project_loading.h"
#include "support/documents.h"
#include "xml/tree.h"

#include <gtest/gtest.h>

#include <set>

namespace corvane {
namespace {

using namespace test;

TEST(RoughEdit, GivesTrackingShapesNewIdsInEveryPiece)
{
    const CutEngine engine = buildEngine(document(
        {.inClip =
             R"(<mc-source angleID="B"><object-tracker><tracking-shape id="a"/><tracking-shape id="b"/></object-tracker>
            <x tracking="b"/><x tracking="elsewhere"/></mc-source><title name="T" tracking="b"><y tracking="a"/></title>)"}));
    const std::string written =
        roughEditXML(engine, {{{}, "B", 0, 300}, {{}, "A", 300, 300}, {{}, "B", 600, 400}}, "B");
    const xml::Document read = xml::Document::parse(written);
    std::set<std::string_view> ids;
    std::size_t following = 0, shapes = 0;
    for (const xml::Element element : read.root()->firstChild("project")->descendants()) {
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
}

TEST(RoughEdit, KeepsEveryByteOfMeaning)
{
    const std::string element =
        "<x:note xmlns:x=\"u\" x:a=\"&quot;&#10;é\"><!-- c --><![CDATA[<&]]> 日 <b> </b></x:note>";
    std::string source = document({.resources = element, .inClip = "<metadata>" + element + "</metadata>"});
    source = replaced(
        replaced(source, "<fcpxml ", "<fcpxml xmlns:y=\"v\" "), "<library", "<library xmlns:q=\"n\" xmlns:z=\"w\"");
    const std::string clipTag = "<mc-clip xmlns:m=\"a&amp;b\" xmlns=\"d\" m:n=\"1\" ref=\"mc\"";
    source = replaced(source, "<mc-clip ref=\"mc\"", clipTag);
    source = replaced(source, "<spine>", "<y:other/><z:other/>and text<spine>");
    const std::string written = roughEditXML(buildEngine(source), {{{}, "A", 0, 500}, {{}, "B", 500, 500}}, "A");
    std::size_t copies = 0;
    for (std::size_t at = written.find(element); at != std::string::npos; at = written.find(element, at + 1))
        ++copies;
    EXPECT_EQ(copies, 3U) << written;
    EXPECT_NE(written.find("<y:other"), std::string::npos);
    EXPECT_NE(written.find(clipTag), written.rfind(clipTag)) << "on every piece";
    for (const char* space : {"xmlns:q=\"n\"", "xmlns:z=\"w\""})
        EXPECT_NE(written.find(space), std::string::npos) << "declared by what is left out, even if only texts use it";
    EXPECT_NE(written.find("and text<spine>"), std::string::npos);
    EXPECT_EQ(written.find("<!DOCTYPE"), std::string::npos);
    EXPECT_NO_THROW((void)xml::Document::parse(written));
}

} // namespace
} // namespace corvane
