#include "import/project_loading.h"
#include "support/documents.h"
#include "support/test_window.h"
#include "timecode/timecode.h"
#include "workspace/captions.h"
#include "workspace/commands.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvane {
namespace {

using namespace test;

/// An edit with an opening, a fixed section and a closing shot.
struct Held : ::testing::Test {
    Held()
    {
        window.randomNumbers = [this, drawn = window.randomNumbers] {
            if (!hasNumbers)
                throw PlatformError("There are no numbers.");
            return drawn();
        };
        window.restart();
        view().importXML(document());
        window.set([](auto& settings) {
            settings.mainMinimum = settings.otherMinimum = 2;
            settings.mainMaximum = settings.otherMaximum = 4;
            settings.openingEnabled = settings.closingEnabled = true;
            settings.openingSeconds = settings.closingSeconds = 3;
            settings.sections = {{{}, "Prayer", "B", "00:00:20:00", "00:00:25:00"}};
        });
        view().generateRoughEdit();
    }
    ContentView& view() { return window.view(); }
    const WorkspaceState& state() { return window.state(); }
    std::size_t prayer()
    {
        return static_cast<std::size_t>(std::ranges::find(state().cuts(), 500, &Cut::start) - state().cuts().begin());
    }
    bool shows(const Cut& shot)
    {
        return std::ranges::any_of(state().cuts(), [&](const Cut& cut) {
            return cut.angle == shot.angle && cut.start == shot.start && cut.duration == shot.duration;
        });
    }

    TestWindow window;
    bool hasNumbers = true;
};

TEST_F(Held, ShotsStayWhereTheyAreInEveryFurtherEdit)
{
    const auto first = state().preview;
    const std::vector<Cut> cuts = first->cuts;
    view().hold({cuts.size() - 2, 2, prayer(), 0, cuts.size() - 1, 2, cuts.size()});
    EXPECT_EQ(state().history.items.size(), 2U);
    const auto second = state().preview;
    ASSERT_EQ(second, state().history.currentRevision());
    EXPECT_EQ(second->settings, state().settings);
    const auto& sections = state().settings.sections;
    ASSERT_EQ(sections.size(), 3U);
    EXPECT_EQ(sections[1], first->settings.sections[0]);
    for (const auto& [section, cut] : {std::pair(sections[0], cuts[2]), {sections[2], cuts[cuts.size() - 2]}}) {
        EXPECT_EQ(section.name, "Held");
        EXPECT_EQ(section.camera, cut.angle);
        EXPECT_EQ(parseTimecode(state().loaded->engine, section.start), cut.start);
        EXPECT_EQ(parseTimecode(state().loaded->engine, section.end), cut.start + cut.duration);
    }
    view().generateRoughEdit();
    EXPECT_TRUE(shows(cuts[2]) && shows(cuts[cuts.size() - 2]));
    EXPECT_EQ(undoText(view()), "Undo Hold") << "generating is no step";
    view().undo();
    EXPECT_EQ(state().preview, first) << "with its cuts";
    EXPECT_EQ(state().settings, first->settings);
    view().redo();
    EXPECT_EQ(state().preview, second);
    view().release({prayer(), 2, 3, 4, 5});
    EXPECT_EQ(state().preview->settings.sections.size(), 1U) << "whoever fixed it";
    EXPECT_EQ(undoText(view()), "Undo Release");
    window.restart();
    EXPECT_EQ(state().preview->settings.sections.size(), 1U) << "saved with its edit";
}

TEST_F(Held, ChangesNothingIfItIsRefused)
{
    const WorkspaceState before = state();
    const std::string saved = readFile(window.sessionFile());
    hasNumbers = false;
    view().hold({1});
    view().release({prayer()});
    EXPECT_EQ(state().error, "There are no numbers.");
    hasNumbers = true;
    view().hold({0, prayer(), 9999});
    view().release({0, 1});
    EXPECT_EQ(state().settings, before.settings);
    EXPECT_EQ(state().history, before.history);
    EXPECT_EQ(state().preview, before.preview);
    EXPECT_EQ(readFile(window.sessionFile()), saved);
    view().importXML(replaced(
        replaced(document(), "tcStart=\"0s\">\n<spine>", "tcStart=\"-10s\">\n<spine>"), "name=\"MC\" offset=\"0s\"",
        "name=\"MC\" offset=\"-10s\""));
    view().generateRoughEdit();
    view().hold({0});
    EXPECT_EQ(
        state().error,
        "The shot at -00:00:10:00 cannot be held, because a section cannot have the timecode -00:00:10:00. In Final "
        "Cut, let the project start at 00:00:00:00 or later, and export XML again.");
    EXPECT_EQ(state().history.items.size(), 1U);
    EXPECT_TRUE(state().settings.sections.empty());
}

TEST_F(Held, CommandsSayWhatTheyNeed)
{
    EXPECT_EQ(whyNot(Command::hold, {view()}), "Choose a shot in the cut list first.");
    EXPECT_EQ(
        whyNot(Command::hold, {view(), false, {0, prayer()}}), "Opening, closing and fixed shots are held already.");
    EXPECT_EQ(whyNot(Command::hold, {view(), false, {0, 1}}), std::nullopt);
    EXPECT_EQ(whyNot(Command::release, {view(), false, {0, 1}}), "Only shots that are fixed sections can be released.");
    EXPECT_EQ(whyNot(Command::release, {view(), false, {prayer()}}), std::nullopt);
    view().generateRoughEdit();
    view().hold({1});
    view().restoreRevision(0);
    view().generateRoughEdit();
    EXPECT_EQ(undoText(view()), "Undo Hold");
    EXPECT_EQ(whyNot(Command::undo, {view()}), "The edit to return to has been replaced.");
    view().undo();
    EXPECT_EQ(state().history.index, 1) << "and does nothing";
    window.set([](auto& settings) { settings.audio.clear(); });
    EXPECT_EQ(whyNot(Command::generate, {view()}), "Choose the continuous audio.");
}

} // namespace
} // namespace corvane
