#include "timecode/timecode.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane {
namespace {

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

struct Rate {
    std::int64_t numerator, denominator;
    int nominal, dropped;

    [[nodiscard]] TimeBase base() const
    {
        TimeBase base;
        base.frameNumerator = numerator;
        base.frameDenominator = denominator;
        base.dropFrame = true;
        return base;
    }
};
// 2002/60000 is 29.97 in other terms; 24000/1001, 1/25 and 1/30 know no drop-frame though it is asked for.
constexpr Rate rates[] = {{1001, 30000, 30, 2}, {1001, 60000, 60, 4}, {2002, 60000, 30, 2},
                          {1001, 24000, 24, 0}, {1, 25, 25, 0},       {1, 30, 30, 0}};

TEST(Timecode, CountsLikeAClockForADay)
{
    for (const Rate& rate : rates) {
        const TimeBase base = rate.base();
        Clock clock{rate.nominal, rate.dropped};
        for (Frames frame = 0; clock.hours < 24; ++frame, clock.tick()) {
            if (frame % 61 != 0 && clock.seconds != 0)
                continue; // labels are dropped in the first second of a minute
            const std::string label = clock.label();
            ASSERT_EQ(timecodeLabel(base, frame), label) << frame;
            ASSERT_EQ(parseTimecode(base, label), frame) << label;
            if (clock.seconds != 0)
                continue;
            ASSERT_EQ(labelAfterSkipped(base, label), std::nullopt) << label;
            if (clock.frames != rate.dropped || clock.minutes % 10 == 0)
                continue;
            for (Clock skipped = clock; skipped.frames-- > 0;)
                ASSERT_EQ(labelAfterSkipped(base, skipped.label()), label);
        }
    }
}

TEST(Timecode, RoundTimesAreTheFirstLabelsOfTheirSeconds)
{
    for (const Rate& rate : rates) {
        TimeBase base = rate.base();
        base.timelineStart = 35'000; // in the middle of a minute
        base.length = rate.nominal * 4000;
        for (const int step : {1, 15, 60, 300, 3600}) {
            const auto times = roundTimes(base, step * rate.nominal, {0, base.length});
            EXPECT_GE(static_cast<int>(times.size()), 3900 / step);
            for (const Frames frame : times) {
                const std::string label = timecodeLabel(base, frame), before = timecodeLabel(base, frame - 1);
                const int seconds = std::stoi(label.substr(3, 2)) * 60 + std::stoi(label.substr(6, 2));
                EXPECT_TRUE(seconds % step == 0 && before.substr(0, 8) != label.substr(0, 8)) << label;
            }
        }
        const FrameRange within = {3000, 3000 + 70 * rate.nominal}; // with the start of a minute
        const auto each = roundTimes(base, 1, within);
        EXPECT_TRUE(each.size() == static_cast<std::size_t>(within.end - within.start) && each.front() == within.start);
        const int part = rate.nominal % 2 == 0 ? rate.nominal / 2 : rate.nominal / 5;
        for (const Frames frame : roundTimes(base, part, within)) {
            const int field = std::stoi(timecodeLabel(base, frame).substr(9));
            EXPECT_TRUE(field % part == 0 || field == rate.dropped) << field;
        }
    }
}

} // namespace
} // namespace corvane
