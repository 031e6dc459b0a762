// The input is a manual: it is read, laid out, and searched for every word of its own titles.

#include "fuzz/target.h"
#include "help/topic_page.h"
#include "help/topic_search.h"

#include <algorithm>

std::string runFuzzInput(std::string_view bytes)
{
    using namespace corvane;
    const CorvaneManual manual = decodeManual(bytes);
    for (const CorvaneManual::Section& section : manual.sections) {
        for (const CorvaneManual::Block& block : section.blocks) {
            const auto lines = pageLines(block);
            if (blockStyle(block) == BlockStyle::heading && lines.size() != 1)
                return "a heading is one line";
        }
        const HelpTopicList list = listTopics(manual, {section.title, section.id});
        if (!topicMatches(section, section.title) || list.shown != &section)
            return "a topic is found by its own title";
        (void)topicMatches(section, bytes.substr(0, std::min<std::size_t>(bytes.size(), 20)));
    }
    return "";
}
