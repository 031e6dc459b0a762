#include "import/time_values.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

const std::string notAligned = "This prototype needs timing aligned to the project frame rate.";
const std::string missing = "The export contains a missing or invalid time value.";

TEST(TimeValues, ReadsRationalTimesAndDropsEmptyPieces)
{
    for (const auto& [text, expected] : std::vector<std::pair<std::string, RationalTime>>{
             {"0s", {0, 1}},
             {"1001/30000s", {1001, 30000}},
             {"/5s", {5, 1}},
             {"5/s", {5, 1}},
             {"5//2s", {5, 2}},
             {"-007/+3s", {-7, 3}},
             {"-9223372036854775808s", {std::numeric_limits<std::int64_t>::min(), 1}}})
        EXPECT_EQ(parseRationalTime(text), expected) << text;
    for (const std::string text :
         {"", "s", "/s", "5", "5S", "+s", "+-5s", "--5s", "1/0s", "1/-2s", "1/2/3s", "2.5s", " 5s", "5 s", "0x5s",
          "9223372036854775808s", "1/9223372036854775808s", "\xd9\xa3s"})
        EXPECT_REFUSED(parseRationalTime(text), "Invalid XML time: " + text);
}

TEST(TimeValues, ReadsWholeFramesAndNeverRounds)
{
    EXPECT_EQ(alignedFrames("3003/30000s", 1001, 30000), 3);
    EXPECT_EQ(alignedFrames("-2002/60000s", 1001, 30000), -1);
    EXPECT_EQ(alignedFrames("0s", 7, 3), 0);
    EXPECT_EQ(alignedFrames("999999999s", 1, 1), 999'999'999);
    EXPECT_REFUSED(alignedFrames("1s", 1001, 30000), notAligned);
    EXPECT_REFUSED(alignedFrames("1/3s", 1, 25), notAligned);
    // The product overflows although the reduced value would fit.
    EXPECT_REFUSED(alignedFrames("9223372036854775807/9223372036854775807s", 1001, 30000), notAligned);
    EXPECT_REFUSED(alignedFrames("1000000000s", 1, 1), "This time value exceeds the prototype's supported range.");
    EXPECT_REFUSED(alignedFrames("-1000000000s", 1, 1), "This time value exceeds the prototype's supported range.");
    EXPECT_REFUSED(alignedFrames("12.5s", 1, 25), "Invalid XML time: 12.5s");
}

TEST(TimeValues, ReadsSecondsInDecimalFormsToo)
{
    for (const auto& [text, expected] : std::vector<std::pair<std::string, double>>{
             {"12.5s", 12.5}, {"-3s", -3}, {"1e3s", 1000}, {"1.5/0.5s", 3}, {"1001/30000s", 1001.0 / 30000}})
        EXPECT_EQ(parseSeconds(text), expected) << text;
    EXPECT_REFUSED(parseSeconds(std::nullopt), missing);
    EXPECT_REFUSED(parseSeconds("5"), missing);
    for (const std::string text :
         {"s", "/5s", "5/s", "5//2s", "1/2/3s", "1/0s", "1/-1s", "infs", "nan/1s", "1e999s", "1e300/1e-300s", " 5s",
          "5,5s", "0x5s", "+-5s"})
        EXPECT_REFUSED(parseSeconds(text), "The export contains an invalid time value: " + text);
}

TEST(TimeValues, WritesFramesUnreducedAndReadsThemBack)
{
    EXPECT_EQ(timeString(0, 100, 2500), "0/2500s");
    EXPECT_EQ(timeString(-3, 1001, 30000), "-3003/30000s");
    for (Frames frames = -largestFrameCount; frames < largestFrameCount; frames += 12'345'678)
        EXPECT_EQ(alignedFrames(timeString(frames, 1001, 60000), 1001, 60000), frames);
}

} // namespace
} // namespace corvane
