#include "timecode/timecode.h"

#include <gtest/gtest.h>

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

TEST(Timecode, CountsLikeAClockForADay)
{
    struct Rate {
        std::int64_t numerator, denominator;
        int nominal, dropped;
    };
    // 2002/60000 is 29.97 in other terms; 24000/1001 and 1/30 know no drop-frame though it is asked for.
    for (const Rate& rate :
         {Rate{1001, 30000, 30, 2}, {1001, 60000, 60, 4}, {2002, 60000, 30, 2}, {1001, 24000, 24, 0}, {1, 30, 30, 0}}) {
        CutEngine engine;
        engine.frameNumerator = rate.numerator;
        engine.frameDenominator = rate.denominator;
        engine.dropFrame = true;
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

} // namespace
} // namespace corvane
