#include "support/documents.h"
#include "support/test_window.h"
#include "workspace/captions.h"
#include "workspace/commands.h"

#include <gtest/gtest.h>

#include <ranges>

namespace corvane {
namespace {

using namespace test;
using Side = UndoStep::Side;

const std::string threeCameras =
    document({angle("A", clip("0s", "40s")) + angle("B", clip("0s", "40s")) + angle("C", clip("0s", "40s"))});

struct UndoActions : ::testing::Test {
    UndoActions() { view().importXML(threeCameras); }
    ContentView& view() { return window.view(); }
    const WorkspaceState& state() { return window.state(); }
    void setShare(double percent)
    {
        window.set([percent](auto& settings) { settings.mainShare = percent; });
    }
    std::string next() { return undoText(view()).value_or("") + "|" + undoText(view(), Side::after).value_or(""); }

    TestWindow window;
};

TEST_F(UndoActions, TakesBackEachActionByItsNameAndDoesItAgain)
{
    const std::pair<const char*, std::function<void()>> actions[] = {
        {"Main Share", [this] { setShare(40); }},
        {"Main Camera Maximum", [this] { view().setBound(&EditSettings::mainMaximum, 5); }}, // the minimum follows
        {"Main Camera", [this] { view().selectMainCamera("B"); }},
        {"Additional Cameras", [this] { view().setCameraIncluded("C", ContentView::Inclusion::excluded); }},
        {"Frequency", [this] { window.set([](auto& settings) { settings.frequencies["A"] = 9; }); }},
        {"Wait", [this] { window.set([](auto& settings) { settings.returnTimes["B"] = 30; }); }},
        {"Add Section", [this] { view().addSection(); }},
        {"Add Section", [this] { view().addSection(); }},
        {"Fixed Section", [this] { window.set([](auto& settings) { settings.sections[0].name = "Prayer"; }); }},
        {"Remove Section", [this] { view().removeSection(0); }},
        {"Apply Preset",
         [this] {
             view().edit([](WorkspaceState& state) { state.presetName = "Sermon"; });
             view().savePreset(ContentView::PresetSave::asNew);
             EditPreset preset = view().presets().presets().front();
             preset.doubleMain = true;
             preset.opening = PresetBookend{"C", 4};
             view().applyPreset(preset);
         }},
    };
    std::vector<EditSettings> settings = {state().settings};
    for (const auto& [name, act] : actions) {
        view().generateRoughEdit();
        act();
        EXPECT_EQ(next(), std::string("Undo ") + name + "|");
        settings.push_back(state().settings);
    }
    for (std::size_t done = std::size(actions); done > 0; --done) {
        EXPECT_TRUE(next().starts_with(std::string("Undo ") + actions[done - 1].first + "|")) << next();
        view().undo();
        EXPECT_EQ(state().settings, settings[done - 1]) << actions[done - 1].first;
        EXPECT_TRUE(state().cuts().empty());
    }
    EXPECT_EQ(next(), "|Redo Main Share");
    for (std::size_t done = 0; done < std::size(actions); ++done) {
        view().redo();
        EXPECT_EQ(state().settings, settings[done + 1]) << actions[done].first;
    }
    EXPECT_EQ(whyNot(Command::redo, {view()}), "There is nothing to redo.");
    view().undo();
    setShare(80);
    EXPECT_EQ(next(), "Undo Main Share|") << "a new step ends what could be redone";
    EXPECT_EQ(window.names("Corvane").size(), 1U);
    window.restart();
    EXPECT_EQ(state().settings.mainShare, 80);
    EXPECT_EQ(next(), "|") << "restoring is no step";
}

TEST_F(UndoActions, TakesADragOrWhatWasTypedAsOneStep)
{
    const auto shares = [this](std::initializer_list<double> percents) {
        for (const double percent : percents)
            setShare(percent);
    };
    view().beginAction();
    shares({65, 60, 55});
    window.set([](auto& settings) { settings.doubleMain = true; });
    view().beginAction();
    shares({50, 45});
    view().generateRoughEdit();
    shares({40});
    view().endAction();
    shares({35, 30});
    view().beginAction();
    shares({25, 30});
    EXPECT_EQ(state().settings.mainShare, 30);
    for (const double percent : {35, 40, 45, 55, 55, 70}) {
        view().undo();
        EXPECT_EQ(state().settings.mainShare, percent);
    }
    EXPECT_EQ(next(), "|Redo Main Share") << "a drag that ends where it began is no step";
}

TEST_F(UndoActions, PutsBackOnlyWhatAStepHasChanged)
{
    view().generateRoughEdit();
    setShare(40);
    view().undo();
    EXPECT_EQ(view().settingsMatchRevision(), true);
    EXPECT_TRUE(state().cuts().empty()) << "only Back brings it back";
    view().redo();
    view().addSection();
    window.set([](auto& settings) { settings.frequencies["B"] = 1, settings.doubleMain = true; });
    view().generateRoughEdit();
    view().stepBack();
    EXPECT_EQ(next(), "|") << "this edit is from before all that";
    view().stepForward();
    EXPECT_EQ(next(), "Undo Frequency|");
    window.set([](auto& settings) { settings.frequencies["C"] = 2; });
    view().generateRoughEdit();
    window.set([](auto& settings) { settings.sections[0].name = "Prayer"; });
    view().restoreRevision(0);
    EXPECT_EQ(next(), "Undo Restore Edit|");
    window.set([](auto& settings) { settings.frequencies["B"] = 7; });
    const EditSettings changed = state().settings;
    view().undo();
    view().undo();
    EXPECT_EQ(state().settings.sections.at(0).name, "Prayer");
    EXPECT_EQ(state().settings.mainShare, 40);
    EXPECT_TRUE(state().cuts().empty());
    view().redo();
    EXPECT_FALSE(state().cuts().empty()) << "the edit that was restored";
    view().redo();
    EXPECT_EQ(state().settings, changed);
}

TEST_F(UndoActions, LeaveOtherCamerasAsARestoredEditHasThem)
{
    const auto set = [this](const char* camera, double weight) {
        window.set([camera, weight](auto& settings) { settings.frequencies[camera] = weight; });
    };
    set("B", 7);
    set("C", 2);
    view().generateRoughEdit();
    view().undo();
    view().undo();
    set("C", 9);
    set("B", 7);
    view().generateRoughEdit();
    view().stepBack();
    view().undo();
    EXPECT_EQ(state().settings.frequencies.at("B"), 5);
    EXPECT_EQ(state().settings.frequencies.at("C"), 2);
}

TEST_F(UndoActions, OfAProjectEndsWithItAndOfAPresetDoesNot)
{
    setShare(40);
    view().edit([](WorkspaceState& state) { state.presetName = "Sermon"; });
    view().savePreset(ContentView::PresetSave::asNew);
    view().deletePreset();
    setShare(30);
    view().generateRoughEdit();
    view().importXML("no project");
    EXPECT_EQ(next(), "Undo Main Share|");
    view().importXML(otherProject);
    EXPECT_EQ(next(), "Undo Delete Preset|");
    setShare(20);
    view().undo();
    view().reopenPreviousSession();
    view().undo();
    EXPECT_EQ(view().presets().presets().size(), 1U);
    EXPECT_EQ(next(), "|Redo Delete Preset");
    view().redo();
    EXPECT_EQ(view().presets().presets().size(), 0U);
    EXPECT_EQ(state().settings.mainShare, 30);
    view().edit([](WorkspaceState& state) { state.presetName = "SERMON"; });
    view().savePreset(ContentView::PresetSave::asNew);
    view().undo();
    EXPECT_TRUE(state().error.value_or("").starts_with("A preset with that name already exists. "));
    EXPECT_EQ(next(), "Undo Delete Preset|") << "it can be tried again under another name";
}

TEST(UndoSteps, AreBoundedInNumberAndMemory)
{
    UndoSteps steps;
    const auto add = [&steps](const std::string& audio) {
        EditSettings changed;
        changed.audio = audio;
        steps.commit(steps.ofSettings("Continuous Audio", {}, changed, false));
        return steps.steps(Side::before).size();
    };
    for (std::size_t step = 0; step < 300; ++step)
        EXPECT_EQ(add("A"), std::min(step + 1, UndoSteps::mostSteps));
    const std::string large(UndoSteps::mostBytes / 3, 'x');
    add(large);
    add(large);
    EXPECT_EQ(add(large), 2U);
    EXPECT_EQ(add(large + large + large), 1U) << "the last action can always be undone";
}

} // namespace
} // namespace corvane
