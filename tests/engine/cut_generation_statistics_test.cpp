#include "engine/coverage_report.h"
#include "engine/cut_generation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

/// Averages over 500 hours of one edit. The bounds are five standard errors or more away from chance, and far inside
/// what the wrong formulas named beside them would give.
namespace corvane {
namespace {

using Range = std::optional<ShotLengthRange>;
constexpr Frames projectLength = Frames{25} * 3600 * 500;

struct LongEdit {
    std::vector<Cut> cuts;
    UsageByCamera usage;

    LongEdit(double share, Range main, Range other, bool doubleMain = false)
    {
        const GenerationInputs inputs = {
            share, 10, "A", {"C", "B"}, doubleMain, main, other, {}, {}, {{"A", 10}, {"B", 10}, {"C", 1}}, {}, {}};
        const std::vector<FrameRange> whole = {{0, projectLength}};
        std::mt19937_64 bits(20'110'503);
        const auto draw = [&] { return static_cast<double>(bits() >> 11) * 0x1p-53; };
        CutEngine engine;
        engine.frameNumerator = 1;
        engine.frameDenominator = 25;
        engine.length = projectLength;
        engine.coverage = {{"A", whole}, {"B", whole}, {"C", whole}};
        cuts = generateCuts(engine, inputs, {draw, [] { return Identifier{}; }});
        cuts.pop_back(); // the end of the project cuts it short
        usage = cameraUsage(cuts);
    }

    [[nodiscard]] double frames(const char* camera) const { return static_cast<double>(usage.at(camera).frames); }
    [[nodiscard]] double shots(const char* camera) const { return static_cast<double>(usage.at(camera).shots); }
    [[nodiscard]] double meanSeconds(const char* camera) const { return frames(camera) / shots(camera) / 25; }
    [[nodiscard]] double shareOfA() const { return frames("A") / static_cast<double>(projectLength); }
};

TEST(GenerationStatistics, LengthsHaveTheMeansThatBringTheMainCameraToItsShare)
{
    // An exponent of 1 / m or 1 - m instead of 1 / m - 1 moves skewed means by more than 5 %; a target from the own
    // range, a share upside down, or s instead of s / (1 - s) move them to the other end.
    const std::tuple<double, Range, Range, double, double, double> rows[] = {
        {0.2, {}, {}, 4, 16, 0.2},
        {0.9, {}, {}, 18, 2, 0.9},
        {0.3, Range{{2, 4}}, Range{{4, 10}}, 3, 7, 0.3},
        {0.75, Range{{10, 20}}, Range{{3, 7}}, 15, 5, 0.75},
        {0.75, Range{{6, 18}}, Range{{3, 7}}, 15, 4, 15.0 / 19},    // each side aims at the other's middle
        {0.5, Range{{4, 24}}, {}, 10, 10, 0.5},                     // at the average shot
        {0.9, Range{{4, 8}}, Range{{10, 20}}, 7.6, 11, 38.0 / 93}}; // held at 0.9 and 0.1 of the way
    for (const auto& [share, main, other, meanOfA, meanOfB, screenTimeOfA] : rows) {
        const LongEdit edit(share, main, other);
        EXPECT_NEAR(edit.meanSeconds("A"), meanOfA, meanOfA * 0.005);
        EXPECT_NEAR(edit.meanSeconds("B"), meanOfB, meanOfB * 0.005);
        EXPECT_NEAR(edit.shareOfA(), screenTimeOfA, 0.003);
    }
}

TEST(GenerationStatistics, NominalLengthsSpreadEvenlyOverThreeToFiveQuarters)
{
    double least = 0;
    double most = 0;
    double squares = 0;
    const LongEdit edit(0.7, {}, {}); // 2 x 10 s x 0.7 are 350 frames
    for (const Cut& cut : edit.cuts) {
        const double deviation = cut.angle == "A" ? static_cast<double>(cut.duration) - 350 : 0;
        least = std::min(least, deviation);
        most = std::max(most, deviation);
        squares += deviation * deviation;
    }
    EXPECT_EQ(least, -87); // truncated instead of rounded: -88
    EXPECT_EQ(most, 87);
    EXPECT_NEAR(edit.meanSeconds("A"), 14, 0.04);                                // from 75 % to 100 %, say: 12.25
    EXPECT_NEAR(std::sqrt(squares / edit.shots("A")), 175 / std::sqrt(12), 0.5); // two draws averaged: 36, not 50.5
}

TEST(GenerationStatistics, FrequenciesTenToOneGiveTenTimesAsManyShots)
{
    // Weights plus one give 5.5, the usual 5 in place of either 2 or 5; the main camera in the lottery halves A.
    const LongEdit edit(0.5, Range{{2, 2}}, Range{{2, 2}});
    EXPECT_NEAR(edit.shots("B") / edit.shots("C"), 10, 0.2);
    EXPECT_NEAR(edit.shareOfA(), 0.5, 0.0001);
}

TEST(GenerationStatistics, OneMainHoldInFourIsDoubled)
{
    std::map<Frames, double> count;
    for (const Cut& cut : LongEdit(0.5, Range{{5, 5}}, Range{{4, 4}}, true).cuts)
        ++count[cut.duration];
    EXPECT_EQ(count.size(), 3U);                                     // 100 frames for the others, never doubled
    EXPECT_NEAR(count[250] / (count[125] + count[250]), 0.25, 0.01); // one in three or in five: 0.33 or 0.2
}

} // namespace
} // namespace corvane
