#include "engine/cut_generation.h"
#include "import/final_cut_import_error.h"
#include "support/engine_builder.h"

#include <gtest/gtest.h>

#include <functional>

namespace corvane {
namespace {

using namespace test;
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

using Change = std::function<void(GenerationInputs&)>;

/// The refusal of an edit of 120 s with an opening of 50 frames and a closing of 100, so changed.
std::string refusalOf(const std::vector<Change>& changes)
{
    const CutEngine engine = engineOf(25, {{"A", {{0, 3000}}}, {"B", {{0, 3000}}}, {"D", {}}});
    GenerationInputs inputs = {0.5, 10, "A", {"B"}, false, {}, {}, BookendShot{"A", 2}, BookendShot{"B", 4},
                               {},  {}, {}};
    for (const Change& change : changes)
        change(inputs);
    try {
        return generateCuts(engine, inputs).empty() ? "nothing" : "none";
    } catch (const FinalCutImportError& refusal) {
        return refusal.what();
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

} // namespace
} // namespace corvane
