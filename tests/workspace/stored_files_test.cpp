#include "support/documents.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

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
    EXPECT_EQ(window.names("Corvane"), (Names{"session-v1 (previous).json", "session-v1.json"}));
}

TEST(StoredPresets, AreLeftByteForByteWhenTheyCannotBeRead)
{
    TestWindow window;
    ContentView& view = window.view();
    window.importAndGenerate(document());
    const auto save = [&window](const char* name) {
        window.view().edit([&](WorkspaceState& state) { state.presetName = name; });
        window.view().savePreset(ContentView::PresetSave::asNew);
    };
    save("First");
    save("Second");
    std::string& stored = window.defaults.values["Corvane.savedPresets.v1"];
    const std::string& kept = window.defaults.values["Corvane.savedPresets.v1 (kept)"];
    const std::string good = stored;
    const std::string chosen = view.presets().presets().front().id.text();
    const std::string rule = "The saved presets could not be read. Your existing saved data has been kept.";
    const std::string damaged = "The file of the saved presets is damaged, ";
    for (const auto& [bad, reason] : std::vector<std::pair<std::string, std::string>>{
             {"\"presets\"", damaged},
             {replaced(good, "\"mainShare\":70.0", "\"mainShare\":9.9"), rule},
             {replaced(good, "\"Second\"", "\" FIRST \""), rule}}) {
        stored = bad;
        window.restart();
        EXPECT_EQ(window.state().error, "Saved presets could not be read. Their stored data has been kept.") << bad;
        save("Third");
        EXPECT_TRUE(window.view().alerts().back().starts_with(reason)) << bad;
        EXPECT_FALSE(window.state().showSavePreset) << "the message is not hidden behind the sheet";
        window.view().edit([&](WorkspaceState& state) { state.chosenPreset = chosen; });
        window.view().savePreset(ContentView::PresetSave::update);
        window.view().deletePreset();
        EXPECT_EQ(stored, bad) << "neither the start nor a save, an update or a deletion writes over it";
        EXPECT_FALSE(window.view().presets().canBeRead());
        window.view().startNewPresetList();
        window.view().startNewPresetList();
        EXPECT_EQ(kept, bad);
        EXPECT_EQ(
            window.state().presetNotice,
            "Started a new list. The old one has been kept in the file Corvane.savedPresets.v1 (kept).");
        EXPECT_EQ(stored, "[]") << "the second time there was nothing to put aside";
    }
    for (const char* place : {"[{", "\"frequencies\":[{"}) {
        const std::string newer = stored = replaced(good, place, std::string(place) + "\"newer\":null,");
        window.restart();
        save("Third");
        save("Fourth");
        EXPECT_EQ(window.view().presets().presets().size(), 4U);
        EXPECT_EQ(kept, newer) << "before the first save over it";
    }
}

} // namespace
} // namespace corvane
