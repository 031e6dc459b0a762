#include "help/help_texts.h"
#include "help/manual.h"
#include "help/product.h"
#include "help/topic_page.h"
#include "help/topic_search.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane {
namespace {

TEST(Manual, HasEachTopicOnce)
{
    const std::string topic = R"({"id": "a", "title": "", "summary": "", "blocks": []})";
    EXPECT_REFUSED(
        decodeManual(R"({"title": "", "description": "", "sections": [)" + topic + "," + topic + "]}"),
        "The manual cannot be read: sections[1].id is used twice.");
}

TEST(Manual, ComesWithTheProgram)
{
    const test::ScratchFolder empty;
    EXPECT_REFUSED(
        loadManual(ResourceFolders({empty.path(), "/nowhere"})),
        "The included manual could not be found. Reinstall Corvane to restore the help files.");
    const CorvaneManual manual = loadManual(ResourceFolders({empty.path(), CORVANE_RESOURCES}));
    EXPECT_EQ(listTopics(manual, {}).shown->id, "quick-start");
    int links = 0;
    for (const CorvaneManual::Section& section : manual.sections) {
        for (const CorvaneManual::Block& block : section.blocks) {
            EXPECT_FALSE(pageLines(block).empty()) << section.id << ": a " << block.kind << " that shows nothing";
            for (const PageLine& line : pageLines(block)) {
                EXPECT_EQ(line.url.starts_with(product::website), blockStyle(block) == BlockStyle::links) << section.id;
                links += line.url.empty() ? 0 : 1;
            }
        }
    }
    EXPECT_GE(links, 2);
}

} // namespace
} // namespace corvane
