#include "platform/text.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace corvane {
namespace {

TEST(TextRules, LowerCaseIsUnicodesOwn)
{
    const std::map<std::string, std::string> lower = {
        {"", ""}, {"Sunday 10", "sunday 10"}, {"ΣΑΣ", "σας"}, {"İI", "i̇i"}, {"ẞⅣ𐐀", "ßⅳ𐐨"}, {"A\xff\xc3", "a\xff\xc3"}};
    for (const auto& [text, expected] : lower)
        EXPECT_EQ(lowerCased(text), expected) << text;
}

TEST(TextRules, NamesSortAsPeopleSortThem)
{
    const std::vector<std::string> sorted = {
        "",         " z",        "007",     "7",    "07a",       "10",         "Alpha",      "alpha",
        "álpha",    "alpha 1",   "alphA-1", "Beta", "service 9", "Service 9a", "Service 10", "service 010b",
        "Service2", "Service10", "Zoë",     "zz",   "α",         "日"};
    const NameOrder order("");
    for (std::size_t a = 0; a < sorted.size(); ++a) {
        for (std::size_t b = 0; b < sorted.size(); ++b)
            EXPECT_EQ(order(sorted[a], sorted[b]), a <=> b) << sorted[a] << " and " << sorted[b];
    }
    EXPECT_TRUE(order("Ängel", "Zebra") < 0);
    EXPECT_TRUE(NameOrder("sv_SE")("Ängel", "Zebra") > 0);
    EXPECT_TRUE(NameOrder()("alpha", "Beta") < 0) << "whatever the language, and where there is none";
}

TEST(TextRules, SearchPassesOverCaseAndAccents)
{
    using Pairs = std::vector<std::pair<std::string, std::string>>;
    for (const auto& [text, query] : Pairs{
             {"avec Élan", "elan"},
             {"elan", "ÉLAN"},
             {"e\u0301lan", "\u00e9l"},
             {"Straße", "STRASSE"},
             {"ΟΔΟΣ", "οδος"},
             {"İstanbul", "istanbul"},
             {"Ångström", "angstrom"},
             {"각", "각"},
             {"\xff x", "X"},
             {"text", ""}})
        EXPECT_TRUE(containsStandard(text, query)) << text << ", " << query;
    for (const auto& [text, query] : Pairs{{"a  b", "a b"}, {"a\nb", "a b"}, {"ab", "a b"}, {"각", "가"}, {"", "x"}})
        EXPECT_FALSE(containsStandard(text, query)) << text << ", " << query;
}

} // namespace
} // namespace corvane
