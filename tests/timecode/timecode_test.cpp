#include "support/refusals.h"
#include "timecode/timecode.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

CutEngine engineAt(std::int64_t numerator, std::int64_t denominator, bool dropFrame = false, Frames timelineStart = 0)
{
    CutEngine engine;
    engine.frameNumerator = numerator;
    engine.frameDenominator = denominator;
    engine.dropFrame = dropFrame;
    engine.timelineStart = timelineStart;
    return engine;
}

/// A clock that is advanced frame by frame and skips the dropped labels, as the standard describes it.
struct Clock {
    int nominal, dropped;
    int hours = 0, minutes = 0, seconds = 0, frames = 0;

    void tick()
    {
        if (++frames < nominal)
            return;
        frames = 0;
        if (++seconds < 60)
            return;
        seconds = 0;
        if (++minutes == 60) {
            minutes = 0;
            ++hours;
        }
        if (minutes % 10 != 0)
            frames = dropped;
    }

    [[nodiscard]] std::string label() const
    {
        const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
        return two(hours) + ":" + two(minutes) + ":" + two(seconds) + (dropped > 0 ? ";" : ":") + two(frames);
    }
};

TEST(Timecode, CountsLikeAClockForADay)
{
    struct Rate {
        std::int64_t numerator, denominator;
        int nominal, dropped;
    };
    // 2002/60000 is 29.97 in other terms; 24000/1001 and 1/30 know no drop-frame though it is asked for.
    for (const Rate& rate :
         {Rate{1001, 30000, 30, 2}, {1001, 60000, 60, 4}, {2002, 60000, 30, 2}, {1001, 24000, 24, 0}, {1, 30, 30, 0}}) {
        const CutEngine engine = engineAt(rate.numerator, rate.denominator, true);
        Clock clock{rate.nominal, rate.dropped};
        for (Frames frame = 0; clock.hours < 24; ++frame, clock.tick()) {
            const std::string label = clock.label();
            ASSERT_EQ(timecodeLabel(engine, frame), label) << frame;
            if (frame % 7 == 0 || clock.seconds == 0) {
                ASSERT_EQ(parseTimecode(engine, label), frame) << label;
            }
        }
    }
}

TEST(Timecode, LabelsBelowZeroAndBeyondADay)
{
    EXPECT_EQ(timecodeText(-1, 1, 25, FrameCount::nonDrop), "-00:00:00:01");
    EXPECT_EQ(timecodeText(-1800, 1001, 30000, FrameCount::dropFrame), "-00:01:00;02");
    EXPECT_EQ(timecodeText(Frames{25} * 3600 * 100, 1, 25, FrameCount::nonDrop), "100:00:00:00");
    EXPECT_EQ(timecodeText(1800, 1001, 30000, FrameCount::nonDrop), "00:01:00:00");
    EXPECT_EQ(timecodeText(3, 7, 3, FrameCount::nonDrop), "00:00:03:00") << "slower than a frame a second";
}

TEST(Timecode, CountsFromTheProjectsStart)
{
    const CutEngine engine = engineAt(1, 25, false, 90'000);
    EXPECT_EQ(timecodeLabel(engine, 0), "01:00:00:00");
    EXPECT_EQ(parseTimecode(engine, "01:00:00:00"), 0);
    EXPECT_EQ(parseTimecode(engine, "00:59:59:24"), -1);
}

TEST(Timecode, ReadsWhatPeopleType)
{
    const CutEngine engine = engineAt(1, 25);
    const std::string format = "Enter timecode as HH:MM:SS:FF, for example 00:05:30:00.";
    EXPECT_EQ(parseTimecode(engine, " \n00;05:30;00\t\xc2\xa0"), 8250);
    EXPECT_EQ(parseTimecode(engine, "0:5:30:0"), 8250);
    EXPECT_EQ(parseTimecode(engine, "9999:59:59:24"), 899'999'999);
    for (const char* text :
         {"", " ", "00:05:30", "00:05:30:00:00", "00:5a:30:00", "00:60:00:00", "00:00:60:00", "10000:00:00:00",
          "-00:00:01:00", "+0:0:0:0", "0: 5:0:0", "::: ", "0:0:0:9223372036854775808", "\xd9\xa3:0:0:0"})
        EXPECT_REFUSED(parseTimecode(engine, text), format) << text;
    EXPECT_REFUSED(parseTimecode(engine, "00:00:01:25"), "The frame field must be less than 25 for this project.");
    const CutEngine drop = engineAt(1001, 60000, true);
    EXPECT_REFUSED(parseTimecode(drop, "00:01:00;03"), "That frame label is skipped in drop-frame timecode.");
    EXPECT_EQ(parseTimecode(drop, "00:01:00;04"), 3600);
}

} // namespace
} // namespace corvane
