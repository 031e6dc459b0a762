#include "platform/xml_tree.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using xml::Document;
using xml::Tree;

std::string written(std::string_view bytes)
{
    std::string text;
    xml::writeElement(text, *Document::parse(bytes).root(), 0);
    return text;
}

TEST(Xml, IsWrittenWithEveryByteOfMeaning)
{
    const std::string element =
        "<p a=\"&lt;&amp;&quot;&#10;&#9;é\"><!-- c --><![CDATA[<&]]> mixed <b> </b> 日&#13;</p>";
    EXPECT_EQ(written(element), element);
    EXPECT_EQ(written("<a> <b/>\n\n<c>x</c></a>"), "<a>\n  <b/>\n  <c>x</c>\n</a>");
}

TEST(Xml, TellsElementsByTheirWrittenNames)
{
    const Document document = Document::parse("<r xmlns:x=\"u\"><x:a/><a x:b=\"1\" b=\"2\"/>text<!-- --><a/></r>");
    const auto first = document.root()->firstChild("a");
    ASSERT_TRUE(first);
    EXPECT_EQ(first->attribute("b"), "2");
    EXPECT_EQ((*document.root()->children().begin()).name(), "x:a");
    EXPECT_EQ(std::ranges::distance(document.root()->descendants().begin(), xml::ElementRange::end()), 3);
    EXPECT_EQ(first->attribute("c"), std::nullopt);
}

TEST(Xml, CopiesCarryTheirNamespacesAlong)
{
    const Document document = Document::parse("<r xmlns:x=\"u\" xmlns=\"d\"><x:a x:b=\"1\"><c/></x:a></r>");
    std::string text;
    Tree(*document.root()->children().begin()).write(text, 0);
    const Document again = Document::parse(text);
    EXPECT_EQ(again.root()->name(), "x:a");
    EXPECT_NE(text.find("xmlns:x=\"u\""), std::string::npos);
    EXPECT_NE(text.find("xmlns=\"d\""), std::string::npos);
}

TEST(Xml, ChangesAttributesInPlaceOrAtTheEnd)
{
    Tree tree(*Document::parse("<a one=\"1\" two=\"2\"/>").root());
    tree.setAttribute(tree.root(), "one", "\"<");
    tree.removeAttribute(tree.root(), "two");
    tree.setAttribute(tree.root(), "three", "3");
    tree.removeAttribute(tree.root(), "none");
    EXPECT_EQ(tree.openTag(), "<a one=\"&quot;&lt;\" three=\"3\"");
}

} // namespace
} // namespace corvane
