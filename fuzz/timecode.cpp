// The first bytes choose a rate and a start, the rest is what a person types.

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
    CutEngine engine;
    const RationalTime rate = draws.anyOf(rates);
    engine.frameNumerator = rate.numerator;
    engine.frameDenominator = rate.denominator;
    engine.dropFrame = draws.oneIn(2);
    engine.timelineStart = draws.between(-largestFrameCount, largestFrameCount);
    const Frames frame = draws.between(0, largestFrameCount);
    if (frame + engine.timelineStart >= 0 && frame + engine.timelineStart < largestFrameCount) {
        const std::string label = timecodeLabel(engine, frame);
        try {
            if (parseTimecode(engine, label) != frame)
                return "a label is read as its frame: " + label;
        } catch (const FinalCutImportError&) { // hours of more than four digits
            if (label.find(':') <= 4)
                return "a label can be read: " + label;
        }
    }
    const std::string typed = draws.take(64);
    const Frames read = parseTimecode(engine, typed);
    if (parseTimecode(engine, timecodeLabel(engine, read)) != read)
        return "what was typed is shown as what it means";
    return "";
}
