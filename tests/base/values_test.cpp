#include "base/identifier.h"
#include "base/numbers.h"
#include "base/random.h"
#include "base/timestamp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace corvane {
namespace {

TEST(Identifiers, AreRandomAndSaySo)
{
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

TEST(Values, FollowTheUserAndTheClock)
{
    EXPECT_EQ(shortNumber(10.0104, ","), "10,01");
    EXPECT_EQ(shortNumber(1234567), "1234567");
    EXPECT_EQ(shortNumber(-0.0001), "0");
    EXPECT_GT(Timestamp::now().seconds, 800e6) << "2026 or later";
}

} // namespace
} // namespace corvane
