#include "help/topic_search.h"

#include "base/text.h"
#include "help/help_texts.h"

#include <algorithm>

namespace corvane {

namespace {

std::string searchableText(const CorvaneManual::Section& section)
{
    std::string all = section.title + " " + section.summary;
    const auto add = [&all](const std::string& text) { all.append(" ").append(text); };
    for (const CorvaneManual::Block& block : section.blocks) {
        if (block.text)
            add(*block.text);
        if (block.items)
            std::ranges::for_each(*block.items, add);
        if (block.links)
            std::ranges::for_each(*block.links, add, &CorvaneManual::LinkItem::title);
    }
    return all;
}

} // namespace

bool topicMatches(const CorvaneManual::Section& section, std::string_view query)
{
    const std::string_view wanted = trimmed(query);
    return wanted.empty() || containsIgnoringCaseAndAccents(searchableText(section), wanted);
}

HelpTopicList listTopics(const CorvaneManual& manual, const HelpTopics& state)
{
    HelpTopicList list;
    for (const CorvaneManual::Section& section : manual.sections) {
        if (!topicMatches(section, state.query))
            continue;
        list.topics.push_back(&section);
        if (list.shown == nullptr || section.id == state.selectedID)
            list.shown = &section;
    }
    const std::string_view wording = state.query.empty() ? help_texts::allTopics : help_texts::matchingTopics;
    list.countLine = std::to_string(list.topics.size()).append(wording);
    return list;
}

} // namespace corvane
