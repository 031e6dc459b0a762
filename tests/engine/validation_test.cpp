#include "engine/validation.h"
#include "support/engine_builder.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>

namespace corvane {
namespace {

using namespace test;
constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
const std::string accepted;
const std::string returnTimes = "Minimum return times must be between 0 and 600 seconds.";
const std::string cameras = "Choose a main camera and at least one additional video angle.";
const std::string frequencies = "Camera frequency must be between 1 and 10.";
const std::string shotLengths = "Shot lengths must be between 1 and 120 seconds.";
const std::string bookends = "Opening and closing lengths must be between 1 and 120 seconds.";
const std::string tooLong = "The opening and closing shots are longer than the project. Reduce their lengths.";
const std::string opening = "The chosen opening camera does not have footage for the whole requested shot. Choose "
                            "another camera or shorten the shot.";
const std::string closing = "The chosen closing camera does not have footage for the whole requested shot. Choose "
                            "another camera or shorten the shot.";
const std::string place = "Fixed sections must have an end after their start, stay inside the project, and not overlap "
                          "opening or closing shots.";
const std::string overlap = "Fixed camera sections overlap. Adjust their start or end timecodes.";

std::string missing(const std::string& stretch)
{
    return "The camera chosen for a fixed section has missing footage between " + stretch +
           ". Choose another camera or shorten the section.";
}

using Change = std::function<void(GenerationInputs&)>;

/// The refusal of an edit of 120 s from 01:00:00:00, with an opening of 50 frames and a closing of 100, so changed.
/// B lacks [1500, 1510), C the last frame, D all. No draw is taken before all is checked.
std::string refusalOf(const std::vector<Change>& changes)
{
    CutEngine engine =
        engineOf(25, {{"A", {{0, 3000}}}, {"B", {{0, 1500}, {1510, 3000}}}, {"C", {{0, 2999}}}, {"D", {}}});
    engine.timelineStart = 90'000;
    GenerationInputs inputs = {0.5, 10, "A", {"B"}, false, {}, {}, BookendShot{"A", 2}, BookendShot{"B", 4},
                               {},  {}, {}};
    for (const Change& change : changes)
        change(inputs);
    GenerationSources sources;
    sources.draws = []() -> double { throw std::logic_error(accepted); }; // all has been checked
    try {
        return generateCuts(engine, inputs, sources).empty() ? "nothing" : accepted;
    } catch (const std::exception& stop) {
        return stop.what();
    }
}

TEST(ValidateInputs, TellsTheFirstRuleThatIsBroken)
{
    const std::pair<Change, std::string> lastRuleFirst[] = {
        {[](auto& edit) { edit.fixedSections = {{"D", 100, 200}, {"A", 0, 20}}; }, place},
        {[](auto& edit) { edit.closing = {"D", 1}; }, closing},
        {[](auto& edit) { edit.opening = {"D", 2}; }, opening},
        {[](auto& edit) { edit.opening->seconds = 120; }, tooLong},
        {[](auto& edit) { edit.closing->seconds = 121; }, bookends},
        {[](auto& edit) { edit.otherRange = {0, 4}; }, shotLengths},
        {[](auto& edit) { edit.frequencies["D"] = 0; }, frequencies},
        {[](auto& edit) { edit.mainShare = 0.95; }, cameras},
        {[](auto& edit) { edit.returnTimes["D"] = -1; }, returnTimes}};
    std::vector<Change> changes;
    for (const auto& [change, refusal] : lastRuleFirst) {
        changes.push_back(change); // what breaks the later rules stays
        EXPECT_EQ(refusalOf(changes), refusal);
    }
}

TEST(ValidateInputs, AcceptsUpToTheLastValueAndNoFurther)
{
    using Set = std::function<void(GenerationInputs&, double)>;
    using Values = std::vector<double>;
    const std::tuple<Set, Values, Values, std::string> rows[] = {
        {[](auto& edit, double x) { edit.returnTimes["D"] = x; }, {0, -0.0, 600}, {600.5, -0.5, inf, nan}, returnTimes},
        {[](auto& edit, double x) { edit.mainShare = x; }, {0.1, 0.9}, {0.099, 0.901, nan}, cameras},
        {[](auto& edit, double x) { edit.averageShot = x; }, {4, 20}, {3.9, 20.1, nan}, cameras},
        {[](auto& edit, double x) { edit.frequencies["D"] = x; }, {1, 10}, {0.5, 11, inf, nan}, frequencies},
        {[](auto& edit, double x) { edit.mainRange = {x, 120}; }, {1, 120}, {0.5, -inf, nan}, shotLengths},
        {[](auto& edit, double x) { edit.otherRange = {1, x}; }, {1, 120}, {121, inf, nan}, shotLengths},
        {[](auto& edit, double x) { edit.opening = {"A", x}; }, {1, 116}, {0.5, 120.5, inf, nan}, bookends},
        {[](auto& edit, double x) { edit.closing = {"A", x}; }, {1, 118}, {0.5, 120.5, -inf, nan}, bookends},
        {[](auto& edit, double x) { edit.opening = {"A", x}, edit.closing = {"A", 60}; }, {60}, {60.03}, tooLong},
        {[](auto& edit, double x) { edit.opening = {"B", x}; }, {60}, {60.03}, opening},
        {[](auto& edit, double x) { edit.closing = {"B", x}; }, {59.6}, {59.63}, closing},
        {[](auto& edit, double x) { edit.closing = {"C", x}; }, {}, {1, 100}, closing},
        {[](auto& edit, double x) { edit.opening = {"unknown", x}; }, {}, {1}, opening}};
    for (const auto& [set, fit, doNotFit, refusal] : rows) {
        for (const double value : fit)
            EXPECT_EQ(refusalOf({[&](auto& edit) { set(edit, value); }}), accepted) << refusal << ' ' << value;
        for (const double value : doNotFit)
            EXPECT_EQ(refusalOf({[&](auto& edit) { set(edit, value); }}), refusal) << value;
    }
    using Cameras = std::vector<std::string>;
    for (const Cameras& others : {Cameras{}, {"B", "A"}, {"B", "B"}, {"D"}, {"B", "unknown"}})
        EXPECT_EQ(refusalOf({[&](auto& edit) { edit.otherCameras = others; }}), cameras);
    EXPECT_EQ(refusalOf({[&](auto& edit) { edit.mainCamera = "D"; }}), cameras);
}

TEST(ValidateInputs, ChecksSectionsForPlaceThenOverlapThenFootageOneAfterTheOther)
{
    const std::pair<std::vector<FixedCameraSection>, std::string> rows[] = {
        {{{"A", 100, 200}, {"A", 199, 300}}, overlap},
        {{{"A", 2800, 2900}, {"A", 50, 100}}, accepted}, // both ends of the free region
        {{{"A", 49, 100}}, place},
        {{{"A", 2800, 2901}}, place},
        {{{"A", 100, 100}}, place},
        {{{"B", 1400, 1500}, {"A", 1500, 1510}, {"B", 1510, 1600}}, accepted},
        {{{"B", 1400, 1501}}, missing("01:00:56:00 and 01:01:00:01")},
        {{{"B", 1509, 1600}}, missing("01:01:00:09 and 01:01:04:00")},
        {{{"unknown", 100, 101}}, missing("01:00:04:00 and 01:00:04:01")},
        {{{"A", 150, 150}, {"D", 100, 200}}, missing("01:00:04:00 and 01:00:08:00")},
        {{{"D", 150, 200}, {"A", 100, 151}}, overlap}};
    for (const auto& [sections, refusal] : rows)
        EXPECT_EQ(refusalOf({[&](auto& edit) { edit.fixedSections = sections; }}), refusal) << sections[0].start;
}

TEST(BookendFrames, RoundsHalvesAwayFromZeroToAtLeastOneFrame)
{
    const std::tuple<FrameDuration, double, Frames> rows[] = {
        {{1, 25}, 1, 25}, {{1001, 30000}, 1, 30}, {{1, 2}, 1.25, 3}, {{10, 1}, 1, 1}};
    for (const auto& [rate, seconds, frames] : rows)
        EXPECT_EQ(bookendFrames(engineOf(rate, {}), BookendShot{"A", seconds}), frames);
    EXPECT_EQ(bookendFrames(engineOf(25, {}), std::nullopt), 0);
}

} // namespace
} // namespace corvane
