#include "help/help_texts.h"
#include "help/manual.h"
#include "help/product.h"
#include "help/topic_page.h"
#include "help/topic_search.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace corvane {
namespace {

/// A manual of topics that have nothing but the given blocks.
std::string manualOf(const std::string& blocks, const std::string& second = "")
{
    return R"({"title": "T", "description": "D", "edition": 2, "sections": [
        {"id": "a", "title": "T", "summary": "S", "blocks": [)" +
           blocks + "]}" + second + "]}";
}

TEST(Manual, IsReadAsItIsOrRefused)
{
    const CorvaneManual manual =
        decodeManual(manualOf(R"({"kind": "note", "text": "x", "items": null}, {"kind": "links",
        "links": [{"title": "L", "url": "mailto:a"}], "colour": 1}, {"kind": "steps", "items": []})"));
    const std::vector<CorvaneManual::Block> blocks = {
        {"note", "x", {}, {}}, {"links", {}, {}, {{{"L", "mailto:a"}}}}, {"steps", {}, std::vector<std::string>(), {}}};
    EXPECT_EQ(manual, (CorvaneManual{"T", "D", {{"a", "T", "S", blocks}}}));
    const std::pair<std::string, std::string> refused[] = {
        {"[]", "it is not an object."},
        {"{}", "title is missing."},
        {manualOf("", R"(,{"id": "b", "summary": ""})"), "sections[1].title is missing."},
        {manualOf("", R"(,{"id": "a", "title": "", "summary": "", "blocks": []})"), "sections[1].id is used twice."},
    };
    for (const auto& [bytes, complaint] : refused)
        EXPECT_REFUSED(decodeManual(bytes), "The manual cannot be read: " + complaint) << bytes;
}

TEST(Manual, BlocksAreSetByTheirKind)
{
    const std::vector<std::string> items = {"x", "y"};
    const std::pair<CorvaneManual::Block, std::vector<PageLine>> cases[] = {
        {{"heading", "h", items, {}}, {{"", "h", ""}}},
        {{"heading", {}, {}, {}}, {{"", "", ""}}},
        {{"bullets", "t", items, {}}, {{"•", "x", ""}, {"•", "y", ""}}},
        {{"steps", {}, items, {}}, {{"1.", "x", ""}, {"2.", "y", ""}}},
        {{"links", {}, items, {{{"l", "u:v"}}}}, {{"", "l", "u:v"}}},
        {{"Bullets", "t", items, {}}, {{"", "t", ""}}},
        {{"bullets", "t", {}, {}}, {}},
        {{"", {}, items, {}}, {}},
    };
    for (const auto& [block, lines] : cases)
        EXPECT_EQ(pageLines(block), lines) << block.kind;
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

/// The help window advises these words where a search finds nothing; they must not find everything either.
TEST(Manual, AdvisedWordsFindTopics)
{
    const CorvaneManual manual = loadManual(ResourceFolders({CORVANE_RESOURCES}));
    for (const char* word : {"audio", "frequency", "timecode", "export"}) {
        EXPECT_NE(help_texts::nothingMatchesHint.find(word), std::string_view::npos) << word;
        const auto found = std::ranges::count_if(
            manual.sections, [word](const CorvaneManual::Section& section) { return topicMatches(section, word); });
        EXPECT_GE(found, 3) << word;
        EXPECT_LT(found, std::ssize(manual.sections)) << word;
    }
}

} // namespace
} // namespace corvane
