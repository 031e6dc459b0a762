#include "support/test_window.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;

/// What version 0.1.0 stored after a day of use: two projects with edits, sections and bookends, and a preset. A folder
/// for each later version that stores something else comes beside it; none is ever written anew.
TEST(EarlierVersions, LeftFilesThatOpen)
{
    const std::filesystem::path stored = CORVANE_FIXTURES "/0.1.0";
    TestWindow window;
    window.quit();
    for (const char* name : {"session-v1.json", "session-v1 (previous).json"})
        std::filesystem::copy_file(stored / name, window.folder.file("Corvane") + "/" + name);
    window.defaults.values["Corvane.savedPresets.v1"] = readFile(stored / "Corvane.savedPresets.v1");
    window.restart();

    EXPECT_FALSE(window.state().error || window.state().sessionSaveError);
    EXPECT_EQ(window.state().presetNotice, "");
    EXPECT_EQ(window.state().loaded->imported.name, "Sunday Service");
    EXPECT_EQ(window.state().history.items.size(), 2U);
    EXPECT_EQ(window.state().cuts().size(), 359U);
    ASSERT_EQ(window.view().presets().presets().size(), 1U);
    EXPECT_EQ(window.view().presets().presets()[0].name, "Gottesdienst früh");
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Interview");
    EXPECT_EQ(window.state().history.items.size(), 3U);
    EXPECT_EQ(window.state().settings.sections.at(0).name, "Lesung");
    EXPECT_TRUE(window.state().settings.openingEnabled && window.state().settings.doubleMain);
    EXPECT_EQ(window.names("Corvane"), (std::vector<std::string>{"session-v1 (previous).json", "session-v1.json"}));
}

} // namespace
} // namespace corvane
