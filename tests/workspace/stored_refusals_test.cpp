#include "platform/base64.h"
#include "support/documents.h"
#include "support/test_window.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <set>

namespace corvane {
namespace {

using namespace test;
using Json = nlohmann::ordered_json;
using Place = Json::json_pointer;

/// Stored bytes that are refused, and the end of the sentence that says so.
struct Fault {
    std::string bytes;
    std::string reason;
};
using Faults = std::vector<Fault>;

/// Breaks one rule: the patch (RFC 7396) is applied to what stands at the place.
struct Breach {
    std::string place;
    std::string patch;
    std::string reason;
};

std::string patched(Json document, const std::string& place, const std::string& patch)
{
    Json& value = document.at(Place(place));
    const Json change = Json::parse(patch);
    if (change.is_object())
        value.merge_patch(change);
    else
        value = change;
    return document.dump();
}

std::string kindOf(const Json& value)
{
    if (value.is_string())
        return " is not a text.";
    if (value.is_boolean())
        return " is neither true nor false.";
    if (value.is_number_integer())
        return " is not a whole number.";
    if (value.is_number())
        return " is not a number.";
    return value.is_array() ? " is not a list." : " is not an object.";
}

/// Adds the document with each of its values once missing, where `required` says so, and once of another kind; of
/// lists the first item stands for all.
template <class Required>
void addShapes(
    const Json& whole, const std::string& subject, const Required& required, Faults& faults, const Place& at = Place(),
    const std::string& name = "")
{
    const Json& value = whole.at(at);
    Json wrong = whole;
    wrong[at] = value.is_array() ? Json::object() : Json::array();
    faults.push_back({wrong.dump(), subject + " cannot be read: " + (name.empty() ? "it" : name) + kindOf(value)});
    if (value.is_array() && !value.empty())
        addShapes(whole, subject, required, faults, at / 0, name + "[0]");
    if (!value.is_object())
        return;
    for (const auto& [key, member] : value.items()) {
        const std::string inside = name.empty() ? key : name + "." + key;
        if (required(inside)) {
            Json without = whole;
            without.at(at).erase(key);
            faults.push_back({without.dump(), subject + " cannot be read: " + inside + " is missing."});
        }
        addShapes(whole, subject, required, faults, at / key, inside);
    }
}

/// Settings with something in every list, and a revision of them.
void fillWindow(TestWindow& window)
{
    window.view().importXML(document({angle("A", clip("0s", "40s")) + angle("B", clip("0s", "39s"))}));
    window.view().edit([](WorkspaceState& state) {
        state.settings.mainShare = 65;
        state.settings.averageShot = 12;
        state.settings.doubleMain = true;
        state.settings.returnTimes["B"] = 3;
        state.settings.openingEnabled = state.settings.closingEnabled = true;
        state.settings.openingSeconds = state.settings.closingSeconds = 2;
        state.settings.sections = {{{}, "Song", "B", "0:0:10:0", "0:0:14:0"}};
    });
    window.view().generateRoughEdit();
}

const std::vector<Breach> settingsBreaches = [] {
    const std::string invalid = "The saved session contains invalid settings. Its stored data has been kept.";
    const std::string cameras = "The saved session's cameras do not match its XML snapshot.";
    std::vector<Breach> breaches;
    for (const char* patch :
         {R"({"mainShare":9.9})",          R"({"mainShare":90.1})",         R"({"averageShot":3.9})",
          R"({"averageShot":20.1})",       R"({"mainMinimum":0.9})",        R"({"mainMinimum":25.1})",
          R"({"mainMaximum":120.1})",      R"({"mainMaximum":9.9})",        R"({"otherMinimum":0.9})",
          R"({"otherMinimum":8.1})",       R"({"otherMaximum":120.1})",     R"({"otherMaximum":3.9})",
          R"({"openingSeconds":0.9})",     R"({"openingSeconds":120.1})",   R"({"closingSeconds":0.9})",
          R"({"closingSeconds":120.1})",   R"({"frequencies":{"B":0.9}})",  R"({"frequencies":{"Z":10.1}})",
          R"({"returnTimes":{"B":-0.1}})", R"({"returnTimes":{"Z":600.1}})"})
        breaches.push_back({"", patch, invalid});
    for (const char* patch :
         {R"({"mainCamera":"Z"})", R"({"mainCamera":""})", R"({"otherCameras":["B","Z"]})", R"({"openingCamera":"Z"})",
          R"({"closingCamera":"Z"})", R"({"audio":"Z"})"})
        breaches.push_back({"", patch, cameras});
    breaches.push_back({"/sections/0", R"({"camera":"Z"})", cameras});
    return breaches;
}();

/// For the revision of one project, whose first cut is of the camera A.
std::vector<Breach> historyBreaches(const Json& good)
{
    const std::string unreadable = "The saved session could not be read. Its stored data has been kept.";
    const std::string invalid = "The saved edit history contains invalid cuts.";
    const std::string cuts = "/history/items/0/cuts";
    const std::string second = cuts + "/1";
    const std::string secondStart = std::to_string(good.at(Place(second)).at("start").get<int>() + 1);
    const std::string number = "The session cannot be read: history.items[0].cuts[0].start is not a whole number.";
    return {
        {"", R"({"version":0})", unreadable},
        {"", R"({"version":2})", unreadable},
        {"/history", R"({"index":-1})", unreadable},
        {"/history", R"({"index":-2})", unreadable},
        {"/history", R"({"index":1})", unreadable},
        {"/history", R"({"items":[]})", unreadable},
        {"/history/items/0/settings", R"({"audio":""})",
         "This audio angle does not cover the whole project. Choose a continuous audio angle."},
        {cuts + "/0", R"({"start":1})", invalid},
        {cuts + "/0", R"({"duration":0})", invalid},
        {cuts + "/0", R"({"duration":-1})", invalid},
        {cuts + "/0", R"({"duration":1001})", invalid},
        {cuts + "/0", R"({"duration":9223372036854775807})", invalid},
        {cuts + "/0", R"({"angle":"Z"})", invalid},
        {second, R"({"start":)" + secondStart + "}", invalid},
        {cuts, "[" + patched(good.at(Place(cuts + "/0")), "", R"({"angle":"B","duration":1000})") + "]", invalid},
        {cuts, "[]", "The saved edit history has an incomplete timeline."},
        {cuts, "[" + good.at(Place(cuts + "/0")).dump() + "]", "The saved edit history has an incomplete timeline."},
        {cuts + "/0", R"({"start":0.5})", number},
        {cuts + "/0", R"({"start":true})", number},
        {cuts + "/0", R"({"start":1e300})", number},
        {cuts + "/0", R"({"start":9223372036854775808})", number},
        {cuts + "/0", R"({"id":"8"})", "The session cannot be read: history.items[0].cuts[0].id is not an identifier."},
        {"/history/items/0", R"({"id":""})", "The session cannot be read: history.items[0].id is not an identifier."},
        {"", R"({"sourceXML":"!"})", "The session cannot be read: sourceXML is not Base64 text."}};
}

/// Texts that are no documents, whatever is expected in them; the reason is the beginning of a sentence.
Faults brokenTexts(const std::string& good, const std::string& subject)
{
    const std::string begin = subject + " cannot be read: line ";
    return {
        {good.substr(0, good.size() / 2), begin},
        {good + "]", begin},
        {good + std::string(1, '\0'), begin},
        {"\xff" + good, begin},
        {replaced(good, "\":\"", "\":\"\xc3"), begin},
        {replaced(good, "\":\"", "\":\"\\ud800"), begin},
        {replaced(good, ":", ":1e400, \"x\":"), begin},
        {replaced(good, ":", ":" + std::string(100'000, '[') + std::string(100'000, ']') + ", \"x\":"), begin},
        {replaced(good, ",", ",,"), begin},
        {"//\n" + good, begin}};
}

Faults sessionFaults(const std::string& good)
{
    const std::string subject = "The session";
    const Json whole = Json::parse(good);
    Faults faults = brokenTexts(good, subject);
    faults.push_back({"", subject + " cannot be read: line 1, column 1"});
    const auto required = [](const std::string& name) { return !name.ends_with("s.B"); }; // a weight, a return time
    addShapes(whole, subject, required, faults);
    for (const Breach& breach : historyBreaches(whole))
        faults.push_back({patched(whole, breach.place, breach.patch), breach.reason});
    for (const Breach& breach : settingsBreaches) {
        for (const char* settings : {"/settings", "/history/items/0/settings"})
            faults.push_back({patched(whole, settings + breach.place, breach.patch), breach.reason});
    }
    Json other = whole;
    other["sourceXML"] = base64Encoded("<fcpxml/>");
    faults.push_back({other.dump(), ""});
    return faults;
}

TEST(StoredSessions, AreLeftByteForByteWhicheverRuleTheyBreak)
{
    TestWindow window;
    fillWindow(window);
    ASSERT_EQ(window.state().error, std::nullopt);
    const Faults faults = sessionFaults(readFile(window.sessionFile()));
    ASSERT_GT(faults.size(), 150U);
    const std::string sentence = "The previous session could not be restored. Its saved file has been kept. You can "
                                 "import an XML to start a new session. ";
    for (const auto& [bad, reason] : faults) {
        const std::string_view bytes = bad;
        replaceFile(window.sessionFile(), {&bytes, 1});
        window.restart();
        EXPECT_TRUE(window.state().error.value_or("").starts_with(sentence + reason))
            << reason << " instead of " << window.state().error.value_or("no complaint") << " for " << bad;
        EXPECT_EQ(window.state().loaded, nullptr);
        EXPECT_EQ(readFile(window.sessionFile()), bad);
        window.view().importXML(document()); // saves
        const std::string kept = window.folder.file("Corvane/session-v1 (kept).json");
        ASSERT_EQ(window.names("Corvane"), (std::vector<std::string>{"session-v1 (kept).json", "session-v1.json"}));
        EXPECT_EQ(readFile(kept), bad) << "no save writes over it before it is kept";
        std::filesystem::remove(kept);
    }
}

TEST(StoredSessions, MayStandOnTheirBounds)
{
    TestWindow window;
    fillWindow(window);
    const Json whole = Json::parse(readFile(window.sessionFile()));
    for (const char* patch :
         {R"({"mainShare":10,"averageShot":4,"mainMinimum":1,"mainMaximum":1,"otherMinimum":1,"otherMaximum":120})",
          R"({"mainShare":90,"averageShot":20,"mainMinimum":120,"mainMaximum":120,"openingSeconds":1})",
          R"({"openingSeconds":120,"closingSeconds":1,"frequencies":{"B":1,"Z":10},"returnTimes":{"B":0,"Z":600}})",
          R"({"closingSeconds":120,"audio":"","openingEnabled":false,"openingCamera":"Z","sections":[]})"}) {
        const std::string bounds = patched(whole, "/settings", patch);
        const std::string_view bytes = bounds;
        replaceFile(window.sessionFile(), {&bytes, 1});
        window.restart();
        EXPECT_EQ(window.state().error, std::nullopt) << patch;
        EXPECT_NE(window.state().loaded, nullptr);
    }
}

std::vector<Breach> presetBreaches(const Json& good)
{
    const std::string rule = "The saved presets could not be read. Your existing saved data has been kept.";
    std::vector<Breach> breaches = {
        {"/1", R"({"id":)" + good[0]["id"].dump() + "}", rule},
        {"/1", R"({"name":" FIRST "})", rule},
        {"/0", R"({"id":"8"})", "The list of presets cannot be read: [0].id is not an identifier."}};
    for (const char* patch :
         {R"({"name":""})", R"({"name":" \u00a0\n"})", R"({"mainShare":9.9})", R"({"mainShare":90.1})",
          R"({"averageShot":3.9})", R"({"averageShot":20.1})", R"({"mainMinimum":0.9})", R"({"mainMinimum":25.1})",
          R"({"mainMinimum":null})", R"({"mainMaximum":null})", R"({"mainMaximum":120.1})", R"({"otherMinimum":0.9})",
          R"({"otherMinimum":8.1})", R"({"otherMinimum":null})", R"({"otherMaximum":null})",
          R"({"otherMaximum":120.1})"})
        breaches.push_back({"/0", patch, rule});
    const std::vector<Breach> rows = {
        {"/returnTimes/0", R"({"seconds":-0.1})", ""},  {"/returnTimes/0", R"({"seconds":600.1})", ""},
        {"/returnTimes/0", R"({"angleName":" "})", ""}, {"/frequencies/0", R"({"weight":0.9})", ""},
        {"/frequencies/0", R"({"weight":10.1})", ""},   {"/frequencies/0", R"({"angleName":""})", ""},
        {"/opening", R"({"seconds":0.9})", ""},         {"/opening", R"({"seconds":120.1})", ""},
        {"/opening", R"({"angleName":""})", ""},        {"/closing", R"({"seconds":0.9})", ""},
        {"/closing", R"({"seconds":120.1})", ""},       {"/closing", R"({"angleName":"\t"})", ""}};
    for (const Breach& row : rows)
        breaches.push_back({"/0" + row.place, row.patch, rule});
    return breaches;
}

void savePreset(TestWindow& window, const std::string& name)
{
    window.view().beginSavePreset();
    window.view().edit([&](WorkspaceState& state) { state.presetName = name; });
    window.view().savePreset(ContentView::PresetSave::asNew);
}

Faults presetFaults(const std::string& good)
{
    const std::string subject = "The list of presets";
    const std::set<std::string> optional = {"returnTimes", "frequencies", "opening",      "closing",
                                            "mainMinimum", "mainMaximum", "otherMinimum", "otherMaximum"};
    const auto required = [&](const std::string& name) { return !optional.contains(name.substr(name.rfind('.') + 1)); };
    const Json whole = Json::parse(good);
    Faults faults = brokenTexts(good, subject);
    addShapes(whole, subject, required, faults);
    for (const Breach& breach : presetBreaches(whole))
        faults.push_back({patched(whole, breach.place, breach.patch), breach.reason});
    return faults;
}

TEST(StoredPresets, AreLeftByteForByteWhicheverRuleTheyBreak)
{
    TestWindow window;
    fillWindow(window);
    savePreset(window, "First");
    savePreset(window, "Second");
    std::string& stored = window.defaults.values["Corvane.savedPresets.v1"];
    const std::string good = stored;
    const std::string chosen = window.view().storedPresets().front().id.text();
    const Faults faults = presetFaults(good);
    ASSERT_GT(faults.size(), 70U);
    const Json saved = Json::parse(good)[0];
    EXPECT_TRUE(saved["mainShare"] == 65 && saved["averageShot"] == 12 && saved["doubleMain"] == true) << good;

    for (const auto& [bad, reason] : faults) {
        stored = bad;
        window.restart();
        EXPECT_EQ(window.state().error, "Saved presets could not be read. Their stored data has been kept.") << bad;
        EXPECT_TRUE(window.view().storedPresets().empty());
        savePreset(window, "Third");
        EXPECT_TRUE(window.view().alerts().back().starts_with(reason))
            << reason << " instead of " << window.view().alerts().back() << " for " << bad;
        EXPECT_FALSE(window.state().showSavePreset) << "the message is not hidden behind the sheet";
        window.view().edit([&](WorkspaceState& state) { state.chosenPreset = chosen; });
        window.view().savePreset(ContentView::PresetSave::update);
        EXPECT_TRUE(window.view().alerts().back().starts_with(reason));
        window.view().deletePreset();
        EXPECT_EQ(stored, bad) << "neither the start nor a save, an update or a deletion writes over it";
    }
    stored = good;
    window.restart();
    EXPECT_EQ(window.state().error, std::nullopt);
    savePreset(window, "Third");
    EXPECT_EQ(window.view().storedPresets().size(), 3U);
}

} // namespace
} // namespace corvane
