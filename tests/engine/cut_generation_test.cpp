#include "engine/cut_generation.h"
#include "support/engine_builder.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;

/// The cut list when every draw is this one.
std::string cutsOf(const CutEngine& engine, const GenerationInputs& inputs, double draw = 0.5)
{
    GenerationSources sources;
    sources.draws = [draw] { return draw; };
    std::string text;
    for (const Cut& cut : generateCuts(engine, inputs, sources)) {
        text += (text.empty() ? "" : ", ") + cut.angle + " " + std::to_string(cut.start) + "-" +
                std::to_string(cut.start + cut.duration);
    }
    return text;
}

/// At 25 frames a second, main camera A in shots of 125 frames, B in shots of 100.
GenerationInputs steadyEdit()
{
    return {0.5, 10, "A", {"B"}, false, ShotLengthRange{5, 5}, ShotLengthRange{4, 4}, {}, {}, {}, {}, {}};
}

TEST(GenerateCuts, DrawsLengthsFromTheRangesAndTheShare)
{
    using Range = std::optional<ShotLengthRange>;
    const std::tuple<std::string, Range, Range, double, double, double, std::string> rows[] = {
        {"half a frame rounds away from zero", {}, {}, 0.5, 14, 0, "A 0-263, B 263-526,"},
        {"towards the average where the other has no range", Range{{4, 8}}, {}, 0.5, 5, 0.5, "A 0-113, B 113-238,"},
        {"the same for the other cameras", {}, Range{{4, 8}}, 0.5, 5, 0.5, "A 0-125, B 125-238,"},
        {"skewed by share", Range{{6, 18}}, Range{{3, 7}}, 0.75, 10, 0.5, "A 0-388, B 388-476,"},
        {"mean at most at 0.9", Range{{4, 8}}, Range{{10, 12}}, 0.5, 10, 1.0 / 512, "A 0-150, B 150-400,"},
        {"mean at least at 0.1", Range{{20, 40}}, Range{{1, 3}}, 0.5, 10, 0.5, "A 0-501, B 501-572,"},
        {"shortest rounded up", Range{{4.01, 8.03}}, Range{{4.01, 8.03}}, 0.5, 10, 0, "A 0-101, B 101-202,"},
        {"longest rounded down", Range{{4.01, 8.03}}, Range{{4.01, 8.03}}, 0.5, 10, 1, "A 0-200, B 200-400,"}};
    for (const auto& [what, main, other, share, average, draw, expected] : rows) {
        const GenerationInputs inputs = {share, average, "A", {"B"}, false, main, other, {}, {}, {}, {}, {}};
        const std::string cuts = cutsOf(engineOf(25, {{"A", {{0, 2000}}}, {"B", {{0, 2000}}}}), inputs, draw);
        EXPECT_EQ(cuts.substr(0, expected.size()), expected) << what;
    }
    GenerationInputs inputs = steadyEdit();
    inputs.mainRange = inputs.otherRange = std::nullopt; // and a frame of 30 s, longer than any nominal shot
    EXPECT_EQ(cutsOf(engineOf({30, 1}, {{"A", {{0, 3}}}, {"B", {{0, 3}}}}), inputs), "A 0-1, B 1-2, A 2-3");
}

TEST(GenerateCuts, PicksByWeightInTheOrderOfTheCameras)
{
    GenerationInputs inputs = steadyEdit();
    inputs.otherCameras = {"D", "B", "C"};
    inputs.frequencies = {{"A", 10}, {"B", 2}, {"D", 3}, {"unused", 9}}; // C has the usual 5
    const CutEngine engine = engineOf(25, {{"A", {{0, 225}}}, {"B", {{0, 225}}}, {"C", {{0, 225}}}, {"D", {{0, 225}}}});
    const std::map<double, std::string> picks = {{-1, "D"},  {0.29, "D"}, {0.3, "B"}, {0.49, "B"},
                                                 {0.5, "C"}, {0.99, "C"}, {1, "C"},   {1.5, "C"}};
    for (const auto& [draw, camera] : picks)
        EXPECT_EQ(cutsOf(engine, inputs, draw), "A 0-125, " + camera + " 125-225") << draw;
}

TEST(GenerateCuts, TellsWhyTheEditCannotGoOn)
{
    const std::string at = "No selected camera has video at 40.00 seconds. The uncovered section lasts ";
    GenerationInputs inputs = steadyEdit();
    EXPECT_REFUSED(
        cutsOf(engineOf(25, {{"A", {{0, 700}, {1300, 2000}}}, {"B", {{0, 1000}, {1250, 2000}}}}), inputs),
        at + "10.00 seconds. Include another camera covering this gap, or remove the uncovered section in Final Cut "
             "and export XML again.");
    EXPECT_REFUSED(
        cutsOf(engineOf(25, {{"A", {{0, 700}}}, {"B", {{0, 1000}}}, {"unused", {{0, 1510}}}}), inputs),
        at + "20.40 seconds. Trim the project to the end of the camera footage in Final Cut and export XML again, or "
             "include another camera covering the ending.");

    inputs.returnTimes["B"] = 60;
    CutEngine engine = engineOf(25, {{"A", {{0, 500}}}, {"B", {{0, 900}}}});
    engine.timelineStart = 90'000;
    EXPECT_REFUSED(
        cutsOf(engine, inputs),
        "Minimum return times prevent a camera change at 01:00:20:00, and the current camera has no footage there. "
        "Reduce a return time or include another camera.");

    inputs.otherRange = ShotLengthRange{5.01, 5.01};
    EXPECT_REFUSED(cutsOf(engine, inputs), "The shot range must contain at least one full frame.");
    engine.length = 125; // no shot of B is drawn
    EXPECT_EQ(cutsOf(engine, inputs), "A 0-125");
}

} // namespace
} // namespace corvane
