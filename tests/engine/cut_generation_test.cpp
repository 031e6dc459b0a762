#include "engine/cut_generation.h"
#include "engine/generation_inputs.h"
#include "support/engine_builder.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

#include <functional>

namespace corvane {
namespace {

using namespace test;

/// The cut list of these draws, which must be just enough; a single one is repeated for ever.
std::string cutsOf(const CutEngine& engine, const GenerationInputs& inputs, const std::vector<double>& draws = {0.5})
{
    std::size_t used = 0;
    GenerationSources sources;
    sources.draws = [&] { return draws.at(draws.size() == 1 ? 0 : used++); };
    std::string text;
    for (const Cut& cut : generateCuts(engine, inputs, sources)) {
        text += (text.empty() ? "" : ", ") + cut.angle + " " + std::to_string(cut.start) + "-" +
                std::to_string(cut.start + cut.duration);
    }
    EXPECT_TRUE(draws.size() == 1 || used == draws.size()) << used << " draws";
    return text;
}

/// At 25 frames a second, main camera A in shots of 125 frames, the others in shots of 100.
GenerationInputs steadyEdit(std::vector<std::string> otherCameras = {"B"})
{
    return {0.5, 10, "A", std::move(otherCameras), false, ShotLengthRange{5, 5}, ShotLengthRange{4, 4}, {}, {},
            {},  {}, {}};
}

TEST(GenerateCuts, DrawsCameraThenNominalLengthThenRangeThenDoubling)
{
    GenerationInputs inputs = steadyEdit({"B", "C"});
    inputs.mainShare = 0.75;
    inputs.mainRange = ShotLengthRange{6, 18}; // 150 + 300 u^(1/3) frames: in the mean 3 times the others' 5 s
    inputs.otherRange = ShotLengthRange{3, 7}; // 75 + 100 u^3 frames: in the mean a third of the main camera's 12 s
    inputs.doubleMain = true;
    const std::vector<double> draws = {
        0.9,  0.9, 0.125, 0.25, // only A may start; 0.25 is not below a quarter
        0.5,  0,   0.5,         // 10 x 0.5 less B's 5 is not below 0, so C; 12.5 frames round to 13
        0.1,  0.1, 0.125, 0.24, // doubled beyond the longest
        0.49, 0.1, 1,           // B
        0,    0,   0,     0.5};
    EXPECT_EQ(
        cutsOf(engineOf(25, {{"A", {{0, 1200}}}, {"B", {{0, 1200}}}, {"C", {{0, 1200}}}}), inputs, draws),
        "A 0-300, C 300-388, A 388-988, B 988-1163, A 1163-1200");
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
        const std::string cuts = cutsOf(engineOf(25, {{"A", {{0, 2000}}}, {"B", {{0, 2000}}}}), inputs, {draw});
        EXPECT_EQ(cuts.substr(0, expected.size()), expected) << what;
    }
    GenerationInputs inputs = steadyEdit();
    inputs.mainRange = inputs.otherRange = std::nullopt; // and a frame of 30 s, longer than any nominal shot
    EXPECT_EQ(cutsOf(engineOf({30, 1}, {{"A", {{0, 3}}}, {"B", {{0, 3}}}}), inputs), "A 0-1, B 1-2, A 2-3");
}

TEST(GenerateCuts, PicksByWeightInTheOrderOfTheCameras)
{
    GenerationInputs inputs = steadyEdit({"D", "B", "C"});
    inputs.frequencies = {{"A", 10}, {"B", 2}, {"D", 3}, {"unused", 9}}; // C has the usual 5
    const CutEngine engine = engineOf(25, {{"A", {{0, 225}}}, {"B", {{0, 225}}}, {"C", {{0, 225}}}, {"D", {{0, 225}}}});
    const std::map<double, std::string> picks = {{-1, "D"},  {0.29, "D"}, {0.3, "B"}, {0.49, "B"},
                                                 {0.5, "C"}, {0.99, "C"}, {1, "C"},   {1.5, "C"}};
    for (const auto& [draw, camera] : picks)
        EXPECT_EQ(cutsOf(engine, inputs, {draw}), "A 0-125, " + camera + " 125-225") << draw;
}

TEST(GenerateCuts, PlacesShotsByWaitsFootageBookendsAndSections)
{
    using Set = std::function<void(GenerationInputs&)>;
    const std::vector<FrameRange> whole = {{0, 550}};
    const Coverage both = {{"A", whole}, {"B", whole}};
    const Coverage three = {{"A", whole}, {"B", whole}, {"C", whole}};
    const Coverage pieces = {{"A", {{0, 500}, {710, 900}}}, {"B", {{0, 550}}}, {"C", {{550, 900}}}};
    const Coverage lateB = {{"A", {{0, 850}}}, {"B", {{600, 750}}}};
    const std::tuple<std::string, Coverage, Set, std::string> rows[] = {
        {"two cameras alternate, frequencies or not", both, [](auto& edit) { edit.frequencies["B"] = 10; },
         "A 0-125, B 125-225, A 225-350, B 350-450, A 450-550"},
        {"B continues in one cut until A may return", both, [](auto& edit) { edit.returnTimes["A"] = 8; },
         "A 0-125, B 125-325, A 325-450, B 450-550"},
        {"a wait of 200.25 frames lasts 201", both, [](auto& edit) { edit.returnTimes["A"] = 8.01; },
         "A 0-125, B 125-425, A 425-550"},
        {"A continues until B may return", both, [](auto& edit) { edit.returnTimes["B"] = 10; },
         "A 0-125, B 125-225, A 225-475, B 475-550"},
        {"B and C take turns while A waits", three, [](auto& edit) { edit.returnTimes["A"] = 600; },
         "A 0-125, C 125-225, B 225-325, C 325-425, B 425-525, C 525-550"},
        {"footage ends within a shot", pieces, [](auto& edit) { edit.mainRange = {30, 30}; },
         "A 0-500, B 500-550, C 550-750, A 750-900"},
        {"neither bookend merges", lateB, [](auto& edit) { edit.opening = {"A", 4}, edit.closing = {"A", 2}; },
         "A 0-100, A 100-600, B 600-700, A 700-800, A 800-850"},
        {"B comes after an opening of A", both, [](auto& edit) { edit.opening = {"A", 4}; },
         "A 0-100, B 100-200, A 200-325, B 325-425, A 425-550"},
        {"A's section stays apart", lateB, [](auto& edit) { edit.fixedSections = {{"A", 200, 300}}; },
         "A 0-200, A 200-300, A 300-675, B 675-750, A 750-850"},
        {"B's sections do not wait; B waits from their ends", both,
         [](auto& edit) {
             edit.returnTimes["B"] = 6, edit.fixedSections = {{"B", 160, 190}, {"A", 190, 200}, {"B", 0, 50}};
         },
         "B 0-50, A 50-160, B 160-190, A 190-200, A 200-450, B 450-550"}};
    for (const auto& [what, coverage, set, cuts] : rows) {
        GenerationInputs inputs = steadyEdit();
        if (coverage.contains("C"))
            inputs.otherCameras.emplace_back("C");
        set(inputs);
        EXPECT_EQ(cutsOf(engineOf(25, coverage), inputs), cuts) << what;
    }
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

TEST(GenerateFromSettings, TakesTheSettingsOnScreenAndTellsTheFirstThingWrong)
{
    ImportedProject project;
    for (const char* id : {"D", "A", "no video", "B"})
        project.angles.push_back({.id = id, .name = {}, .cameras = {}, .firstRecording = {}});
    CutEngine engine = engineOf(25, {{"A", {{0, 900}}}, {"B", {{0, 900}}}, {"D", {{0, 900}}}, {"no video", {}}});
    engine.audioCoverage = {{"sound", {{0, 900}}}};
    EditSettings settings;
    settings.mainCamera = "A";
    settings.otherCameras = {"A", "B", "D", "gone", "no video"};
    settings.openingCamera = "B"; // kept on screen, but not enabled
    settings.closingEnabled = true;
    settings.closingCamera = "D";
    settings.frequencies = {{"D", 3}};
    settings.returnTimes = {{"B", 2}};
    const GenerationInputs inputs = generationInputs(project, engine, settings);
    EXPECT_EQ(inputs.mainShare, 0.7);
    EXPECT_EQ(inputs.otherCameras, (std::vector<std::string>{"D", "B"})); // the order of the angles
    EXPECT_EQ(inputs.mainRange, (ShotLengthRange{10, 25}));
    EXPECT_EQ(inputs.otherRange, (ShotLengthRange{4, 8}));
    EXPECT_EQ(inputs.opening, std::nullopt);
    EXPECT_EQ(inputs.closing, (BookendShot{"D", 15}));
    EXPECT_EQ(inputs.frequencies, settings.frequencies);
    EXPECT_EQ(inputs.returnTimes, settings.returnTimes);

    settings.mainShare = 5;
    settings.sections = {{{}, "", "A", "00:00:02:00", "late"}, {{}, "", "A", "00:00:02:25", "later"}};
    const auto generate = [&] { return generateFromSettings(project, engine, settings); };
    EXPECT_REFUSED(generate(), "This audio angle does not cover the whole project. Choose a continuous audio angle.");
    settings.audio = "sound";
    EXPECT_REFUSED(generate(), "Enter timecode as HH:MM:SS:FF, for example 00:05:30:00.");
    settings.sections.clear();
    EXPECT_REFUSED(generate(), "Choose a main camera and at least one additional video angle.");
    settings.mainShare = 10;
    EXPECT_EQ(generate().back().start, 525);
}

} // namespace
} // namespace corvane
