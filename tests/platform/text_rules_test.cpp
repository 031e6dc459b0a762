#include "platform/text.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace corvane {
namespace {

TEST(TextRules, LowerCaseIsUnicodesOwnAndNothingIsLost)
{
    const std::map<std::string, std::string> lower = {
        {"", ""}, {"Sunday 10", "sunday 10"}, {"ΣΑΣ", "σας"}, {"İI", "i̇i"}, {"ẞⅣ𐐀", "ßⅳ𐐨"}, {"A\xff\xc3", "a\xff\xc3"}};
    for (const auto& [text, expected] : lower)
        EXPECT_EQ(lowerCased(text), expected) << text;
    EXPECT_EQ(trimmed("\xff x "), "\xff x") << "what is no text is left as it is";
}

TEST(TextRules, NamesSortByTheUsersLanguage)
{
    EXPECT_TRUE(NameOrder("")("Ängel", "Zebra") < 0);
    EXPECT_TRUE(NameOrder("sv_SE")("Ängel", "Zebra") > 0);
    EXPECT_TRUE(NameOrder()("alpha", "Beta") < 0) << "whatever the language, and where there is none";
}

} // namespace
} // namespace corvane
