#include "platform/base64.h"
#include "platform/identifier.h"
#include "platform/numbers.h"
#include "platform/random.h"
#include "platform/text.h"
#include "platform/timestamp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

namespace corvane {
namespace {

TEST(Numbers, AreWrittenForPeopleAndForFiles)
{
    EXPECT_EQ(decimal(60), "60.0");
    EXPECT_EQ(decimal(0.1), "0.1");
    EXPECT_EQ(decimal(1.0 / 3), "0.3333333333333333");
    EXPECT_EQ(decimal(1e15), "1000000000000000.0");
    EXPECT_EQ(decimal(-0.0), "-0.0");
    EXPECT_EQ(decimal(0.000003), "3e-06");
    EXPECT_EQ(fixed(2.675, 2), "2.67") << "the binary value lies below the tie";
    EXPECT_EQ(fixed(0.125, 2), "0.12") << "ties go to even";
    EXPECT_EQ(shortNumber(10.0104, ","), "10,01");
    EXPECT_EQ(shortNumber(1234567), "1234567");
    EXPECT_EQ(shortNumber(-0.0001), "0");
    EXPECT_EQ(readNumber("1e3"), 1000);
    for (const char* text : {"", "-", "inf", "nan", "-inf", "1e999", "1 ", "1,5", "0x1p3"})
        EXPECT_EQ(readNumber(text), std::nullopt) << text;
}

TEST(Identifiers, AreReadInEitherCaseAndWrittenInUpperCase)
{
    const auto read = Identifier::parse("8ea1e1d8-10e5-4872-9FF6-759FE19A759B");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->text(), "8EA1E1D8-10E5-4872-9FF6-759FE19A759B");
    for (const char* text :
         {"", "8EA1E1D8-10E5-4872-9FF6-759FE19A759", "8EA1E1D8-10E5-4872-9FF6-759FE19A759G",
          "8EA1E1D8010E5-4872-9FF6-759FE19A759B", "{EA1E1D8-10E5-4872-9FF6-759FE19A759}"})
        EXPECT_FALSE(Identifier::parse(text)) << text;
    std::set<Identifier> seen;
    const IdentifierSource source = randomIdentifiers();
    for (int n = 0; n < 1000; ++n) {
        const Identifier identifier = source();
        EXPECT_EQ(identifier.text()[14], '4');
        EXPECT_NE(std::string("89AB").find(identifier.text()[19]), std::string::npos);
        EXPECT_TRUE(seen.insert(identifier).second);
    }
}

TEST(Draws, AreUniformWithFiftyThreeBits)
{
    const UniformDraws draws = secureDraws();
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

TEST(Timestamps, AreWrittenInUtcWithWholeSeconds)
{
    EXPECT_EQ(Timestamp{673934049.9}.isoText(), "2022-05-11T03:54:09Z");
    EXPECT_EQ(Timestamp{-0.5}.isoText(), "2000-12-31T23:59:59Z");
    EXPECT_EQ(Timestamp{1e300}.isoText(), "9999-12-31T23:59:59Z");
    EXPECT_EQ(Timestamp{std::numeric_limits<double>::quiet_NaN()}.isoText(), "0000-01-01T00:00:00Z");
    EXPECT_GT(Timestamp::now().seconds, 800e6) << "2026 or later";
}

TEST(Texts, KeepWholeCharacters)
{
    const std::string family = "👨‍👩‍👧", accented = "e\u0301", flag = "🇩🇪", hangul = "각";
    const std::string text = family + accented + flag + hangul + "x";
    EXPECT_EQ(firstCharacters(text, 1), family);
    EXPECT_EQ(firstCharacters(text, 4), family + accented + flag + hangul);
    EXPECT_EQ(firstCharacters(text, 9), text);
    EXPECT_EQ(charactersWithin(text, family.size() + 2), family) << "no half of an accented letter";
    EXPECT_EQ(charactersWithin(text, 3), "");
    EXPECT_EQ(trimmed("\t\u2028 a b\u00a0\n"), "a b");
    EXPECT_EQ(trimmed(" \n "), "");
    EXPECT_EQ(trimmed("\xff x "), "\xff x");
}

TEST(Base64, ReadsWhatItWrites)
{
    std::string bytes;
    for (int length = 0; length < 300; ++length) {
        EXPECT_EQ(base64Decoded(base64Encoded(bytes)), bytes);
        bytes += static_cast<char>(length * 7);
    }
    EXPECT_EQ(base64Encoded("fo"), "Zm8=");
    for (const char* text : {"Zg=", "Z===", "Zm9v\n", "Zm9=v", "Zm8=Zm8=", "Zm\xc3\xa9"})
        EXPECT_EQ(base64Decoded(text), std::nullopt) << text;
}

} // namespace
} // namespace corvane
