#include "help/topic_search.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace corvane {
namespace {

const CorvaneManual manual{
    "Corvane",
    "",
    {{"quick-start", "Begin", "In a minute", {{"bullets", {}, {{"Timecode", "last"}}, {}}}},
     {"sound", "Ton", "Élan", {{"text", "Continuous audio", {}, {}}, {"links", {}, {}, {{{"Site", "x:y"}}}}}},
     {"third", "Third", "", {{"heading", "", {}, {}}, {"text", "audio", {}, {}}}}}};

TEST(TopicSearch, FindsWhatPeopleRead)
{
    const std::map<std::string, std::string> foundTopics = {
        // by their first letters
        {"", "qst"},         {" \n", "qst"},      {" TIMECODE\t", "q"}, {"begin in a", "q"}, {"minute time", "q"},
        {"quick-start", ""}, {"x:y", ""},         {"elan", "s"},        {"ÉLAN", "s"},       {"AUDIO", "st"},
        {"audio site", "s"}, {"third   au", "t"}, {"third au", ""},     {"beginin", ""}};
    for (const auto& [query, letters] : foundTopics) {
        std::string found;
        for (const CorvaneManual::Section& section : manual.sections)
            found += topicMatches(section, query) ? section.id.substr(0, 1) : "";
        EXPECT_EQ(found, letters) << '"' << query << '"';
    }
}

TEST(TopicSearch, ShowsTheSelectedTopicOrTheFirst)
{
    const struct {
        HelpTopics state;
        const char* shown; ///< id, or "" for none
        const char* countLine;
    } cases[] = {
        {{}, "quick-start", "3 topics · Available offline"},
        {{"", "third"}, "third", "3 topics · Available offline"},
        {{" ", "third"}, "third", "3 matching topics"},
        {{"audio", "quick-start"}, "sound", "2 matching topics"},
        {{"begin", "third"}, "quick-start", "1 matching topics"},
        {{"", {}}, "quick-start", "3 topics · Available offline"},
        {{"zzz", "third"}, "", "0 matching topics"},
    };
    for (const auto& [state, shown, countLine] : cases) {
        const HelpTopicList list = listTopics(manual, state);
        EXPECT_EQ(list.shown == nullptr ? "" : list.shown->id, shown) << state.query;
        EXPECT_EQ(list.countLine, countLine) << state.query;
    }
}

} // namespace
} // namespace corvane
