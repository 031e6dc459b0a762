// The first bytes choose a rate and a start; the rest is what a person types.

#include "timecode/timecode.h"

#include "fuzz/byte_draws.h"
#include "fuzz/target.h"
#include "import/final_cut_import_error.h"
#include "import/time_values.h"

#include <array>

std::string runFuzzInput(std::string_view bytes)
{
    using namespace corvane;
    test::ByteDraws draws(bytes);
    constexpr std::array<RationalTime, 8> rates = {RationalTime{1001, 30000},
                                                   {1001, 60000},
                                                   {1001, 24000},
                                                   {1, 25},
                                                   {1, 24},
                                                   {100, 6000},
                                                   {1'000'000, 1},
                                                   {1, 1'000'000}};
    TimeBase base;
    const RationalTime rate = draws.anyOf(rates);
    base.frameNumerator = rate.numerator;
    base.frameDenominator = rate.denominator;
    base.dropFrame = draws.oneIn(2);
    base.timelineStart = draws.between(-largestFrameCount, largestFrameCount);
    const Frames frame = draws.between(0, largestFrameCount);
    if (frame + base.timelineStart >= 0 && frame + base.timelineStart < largestFrameCount) {
        const std::string label = timecodeLabel(base, frame);
        try {
            if (parseTimecode(base, label) != frame)
                return "a label is read as its frame: " + label;
        } catch (const FinalCutImportError&) { // more than four digits of hours
            if (label.find(':') <= 4)
                return "a label can be read: " + label;
        }
    }
    const std::string typed = draws.take(64);
    const Frames read = parseTimecode(base, typed);
    if (parseTimecode(base, timecodeLabel(base, read)) != read)
        return "what was typed is shown as what it means";
    return "";
}
