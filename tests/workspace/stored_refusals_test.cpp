#include "base/base64.h"
#include "support/documents.h"
#include "support/test_window.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace corvane {
namespace {

using namespace test;
using Json = nlohmann::ordered_json;

/// The stored document with one value in another's place, and how the complaint about it begins.
struct Breach {
    std::string place; ///< of what is replaced, as a JSON pointer
    Json value;
    std::string reason;
};

std::string broken(const std::string& good, const Breach& breach)
{
    Json document = Json::parse(good);
    document[Json::json_pointer(breach.place)] = breach.value;
    return document.dump();
}

/// An imported project with an edit.
void fillWindow(TestWindow& window)
{
    window.importAndGenerate(document());
}

void savePreset(TestWindow& window, const std::string& name)
{
    window.view().beginSavePreset();
    window.view().edit([&](WorkspaceState& state) { state.presetName = name; });
    window.view().savePreset(ContentView::PresetSave::asNew);
}

TEST(StoredSessions, AreLeftByteForByteWhenTheyCannotBeRestored)
{
    TestWindow window;
    fillWindow(window);
    const std::string good = readFile(window.sessionFile());
    const std::vector<Breach> breaches = {
        {"/settings", 0, "The session cannot be read: settings is not an object."},
        {"/sourceXML", base64Encoded("<fcpxml/>"), "Export one project from Final Cut Pro"},
        {"/history/items/0/cuts", Json::array(), "The saved edit history has an incomplete timeline."}};
    std::vector<std::pair<std::string, std::string>> faults = {
        {"", "The session cannot be read: line 1, column 1"},
        {good.substr(0, good.size() / 2), "The session cannot be read: line 1"}};
    for (const Breach& breach : breaches)
        faults.emplace_back(broken(good, breach), breach.reason);

    const std::string sentence = "The previous session could not be restored. Its saved file has been kept. You can "
                                 "import an XML to start a new session. ";
    for (const auto& [bad, reason] : faults) {
        const std::string_view bytes = bad;
        replaceFile(window.sessionFile(), {&bytes, 1});
        window.restart();
        EXPECT_TRUE(window.state().error.value_or("").starts_with(sentence + reason))
            << reason << " instead of " << window.state().error.value_or("no complaint");
        EXPECT_EQ(window.state().loaded, nullptr);
        EXPECT_EQ(readFile(window.sessionFile()), bad);
        window.view().importXML(document()); // saves
        const std::string kept = window.folder.file("Corvane/session-v1 (kept).json");
        ASSERT_EQ(window.names("Corvane"), (std::vector<std::string>{"session-v1 (kept).json", "session-v1.json"}));
        EXPECT_EQ(readFile(kept), bad) << "no save writes over it before it is kept";
        std::filesystem::remove(kept);
    }
}

TEST(StoredPresets, AreLeftByteForByteWhenTheyCannotBeRead)
{
    TestWindow window;
    fillWindow(window);
    savePreset(window, "First");
    savePreset(window, "Second");
    std::string& stored = window.defaults.values["Corvane.savedPresets.v1"];
    const std::string good = stored;
    const std::string chosen = window.view().presets().presets().front().id.text();
    const std::string rule = "The saved presets could not be read. Your existing saved data has been kept.";
    const auto damaged = [](const std::string& complaint) {
        return "The file of the saved presets is damaged, or another version of Corvane has written it. It has been "
               "kept. "
               "Choose Start a New List… to put it aside and begin again. (The list of presets cannot be read: " +
               complaint + ")";
    };
    for (const Breach& breach : std::vector<Breach>{
             {"", "presets", damaged("it is not a list.")},
             {"/0/id", "8", damaged("[0].id is not an identifier.")},
             {"/0/mainShare", 9.9, rule},
             {"/1/name", " FIRST ", rule}}) {
        const std::string bad = broken(good, breach);
        stored = bad;
        window.restart();
        EXPECT_EQ(window.state().error, "Saved presets could not be read. Their stored data has been kept.") << bad;
        EXPECT_TRUE(window.view().presets().presets().empty());
        savePreset(window, "Third");
        EXPECT_EQ(window.view().alerts().back(), breach.reason);
        EXPECT_FALSE(window.state().showSavePreset) << "the message is not hidden behind the sheet";
        window.view().edit([&](WorkspaceState& state) { state.chosenPreset = chosen; });
        window.view().savePreset(ContentView::PresetSave::update);
        EXPECT_EQ(window.view().alerts().back(), breach.reason);
        window.view().deletePreset();
        EXPECT_EQ(stored, bad) << "neither the start nor a save, an update or a deletion writes over it";
        EXPECT_FALSE(window.view().presets().canBeRead());
        window.view().startNewPresetList();
        window.view().startNewPresetList();
        EXPECT_EQ(window.defaults.values["Corvane.savedPresets.v1 (kept)"], bad);
        EXPECT_EQ(
            window.state().presetNotice,
            "Started a new list. The old one has been kept in the file Corvane.savedPresets.v1 (kept).");
        EXPECT_EQ(stored, "[]") << "the second time there was nothing to put aside";
        EXPECT_TRUE(window.view().presets().canBeRead());
    }
    for (const char* place : {"/0/newer", "/0/frequencies/0/newer"}) {
        const std::string newer = broken(good, {place, nullptr, ""});
        stored = newer;
        window.defaults.values.erase("Corvane.savedPresets.v1 (kept)");
        window.restart();
        savePreset(window, "Third");
        savePreset(window, "Fourth");
        EXPECT_EQ(window.view().presets().presets().size(), 4U);
        EXPECT_EQ(window.defaults.values["Corvane.savedPresets.v1 (kept)"], newer) << "before the first save over it";
    }
    stored = good;
    window.restart();
    EXPECT_EQ(window.state().error, std::nullopt);
    savePreset(window, "Third");
    EXPECT_EQ(window.view().presets().presets().size(), 3U);
}

} // namespace
} // namespace corvane
