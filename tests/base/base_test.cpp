#include "base/identifier.h"
#include "base/numbers.h"
#include "base/random.h"
#include "base/text.h"
#include "base/timestamp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
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

TEST(TextRules, ControlsAreDrawnAsMarksOneForOne)
{
    const std::map<std::string, std::string> drawn = {
        {"", ""},
        {"Élodie & \"Кам\" 👩‍🎬 שלום",
         "Élodie & \"Кам\" 👩‍🎬 שלום"}, // joined by a character that cannot be seen, either
        {"c\vd\f", "c↵d↵"},                            // the others stand in HostileNames
        {std::string("\0\x1b[31m\x7f\xc2\x9b", 9), "��[31m��"},
        {"\uFFFB\uFFFC\uFFFD\uFFFE\uFFFF|\uFDCF\uFDD0\uFDEF\uFDF0|\U0001FFFF\U0010FFFE",
         "\uFFFB����|\uFDCF��\uFDF0|��"},
        {"\xe2\x80\xff\n", "\xe2\x80\xff↵"}};
    for (const auto& [text, expected] : drawn)
        EXPECT_EQ(withVisibleControls(text), expected) << expected;
}

TEST(TextRules, LongTextsLoseTheirMiddleAndNoCharacterIsSplit)
{
    const auto times = [](std::size_t count, std::string_view text) {
        std::string all;
        for (; count > 0; --count)
            all += text;
        return all;
    };
    EXPECT_EQ(withoutMiddle(times(600, "é")), times(600, "é"));
    EXPECT_EQ(withoutMiddle(times(601, "é")), times(299, "é") + "…" + times(300, "é"));
    EXPECT_EQ(withoutMiddle("abcdefgh", 6), "ab…fgh");
    EXPECT_EQ(withoutMiddle(times(301, "e\u0301")), times(149, "e\u0301") + "…" + times(150, "e\u0301"));
    EXPECT_EQ(withoutMiddle(times(400, "🇸🇪")), times(149, "🇸🇪") + "…" + times(150, "🇸🇪")) << "no half flags";
    const std::string tower = "e" + times(9'000'000, "\u0301");
    EXPECT_EQ(withoutMiddle(tower), "e" + times(298, "\u0301") + "…" + times(300, "\u0301"));
    EXPECT_EQ(withoutMiddle(times(9'000'000, "\x80")).size(), 599 + 3) << "what is no text is counted byte by byte";
    EXPECT_EQ(shownText(times(700, "\n")), times(299, "↵") + "…" + times(300, "↵"));
}

TEST(Randomness, IsOfThisKindAndUniform)
{
    const IdentifierSource identifiers = randomIdentifiers();
    std::set<Identifier> seen;
    for (int n = 0; n < 1000; ++n) {
        const Identifier identifier = identifiers();
        EXPECT_TRUE(identifier.text()[14] == '4' && std::string("89AB").find(identifier.text()[19]) < 4);
        EXPECT_TRUE(seen.insert(identifier).second);
    }
    const RandomNumbers draws = secureRandomNumbers();
    double sum = 0;
    bool fine = false;
    constexpr int count = 100'000;
    for (int n = 0; n < count; ++n) {
        const double u = draws();
        ASSERT_TRUE(u >= 0 && u < 1 && std::floor(u * 0x1p53) == u * 0x1p53);
        fine = fine || std::floor(u * 0x1p52) != u * 0x1p52;
        sum += u;
    }
    EXPECT_TRUE(fine) << "the last bit is never set";
    EXPECT_NEAR(sum / count, 0.5, 0.006) << "six standard deviations";
}

TEST(Values, FollowTheUserAndTheClock)
{
    EXPECT_EQ(shortNumber(10.0104, ","), "10,01");
    EXPECT_EQ(shortNumber(1234567), "1234567");
    EXPECT_EQ(shortNumber(-0.0001), "0");
    EXPECT_GT(Timestamp::now().seconds, 800e6) << "2026 or later";
    ::setenv("TZ", "JST-9", 1);
    ::tzset();
    EXPECT_EQ(Timestamp{54'000.9}.localText(), "2001-01-02 00:00:00");
    EXPECT_TRUE(Timestamp{1e300}.localText().starts_with("10000-01-01 ")) << "the end of what isoText tells, in Tokyo";
}

} // namespace
} // namespace corvane
