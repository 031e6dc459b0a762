#include "session/saved_session.h"
#include "support/documents.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

TEST(ReplacedSessions, AreKeptAndBroughtBack)
{
    TestWindow window;
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().error, "There is no previous project to reopen.");
    window.importAndGenerate(document());
    const std::vector<Cut> cuts = window.state().cuts();
    EXPECT_FALSE(window.state().canReopen);
    window.view().importXML(replaced(document(), "Concert", "Other"));
    EXPECT_TRUE(window.state().canReopen);
    window.view().addSection();
    window.view().reopenPreviousSession();
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().settings.sections.size(), 1U) << "settings are work too";
    window.view().removeSection(0);
    window.view().generateRoughEdit();
    EXPECT_EQ(window.names("Corvane"), (Names{"session-v1 (previous).json", "session-v1.json"}));
    window.view().edit([](WorkspaceState& state) { state.chosenPreset = state.presetNotice = "of the other project"; });
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Concert");
    EXPECT_EQ(window.state().chosenPreset + window.state().presetNotice, "");
    EXPECT_EQ(window.state().cuts(), cuts);
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Other") << "what it replaced became the previous one";
    // The same for a session that is only stored, because a project arrived before it could be restored.
    window.quit();
    window.start();
    window.view().windowAppeared();
    EXPECT_TRUE(window.state().canReopen) << "at the start, too";
    window.quit();
    window.start();
    window.view().importXML(replaced(document(), "Concert", "Third"));
    window.view().windowAppeared();
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Other");
    EXPECT_EQ(window.names("Corvane"), (Names{"session-v1 (previous).json", "session-v1.json"}));
    // What cannot be read does not take the place of what can.
    window.quit();
    const std::string_view garbage = "{";
    replaceFile(window.sessionFile(), {&garbage, 1});
    window.start();
    window.view().importXML(document());
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Third");
}

TEST(ReplacedSessions, AreCopiedWhenTheirPlaceCannotBeHad)
{
    TestWindow window;
    window.importAndGenerate(document());
    std::filesystem::create_directory(window.folder.file("Corvane/session-v1 (previous).json"));
    window.view().importXML(replaced(document(), "Concert", "Other"));
    EXPECT_EQ(window.state().loaded->imported.name, "Other") << "the import goes on";
    EXPECT_EQ(
        window.state().sessionSaveError, "The previous session could not be kept: Cannot read session-v1 "
                                         "(previous).json: Is a directory.");
    const SavedEditSession kept = decodeSession(readFile(window.folder.file("Corvane/session-v1 (kept).json")));
    EXPECT_EQ(kept.sourceXML, document());
    EXPECT_EQ(kept.history.items.size(), 1U) << "the replaced session is in no other file";
}

TEST(ReplacedSessions, MayBeOfAnotherProcess)
{
    TestWindow window;
    const auto put = [&](std::string_view bytes) { replaceFile(window.sessionFile(), {&bytes, 1}); };
    put("garbage");
    window.view().windowAppeared();
    EXPECT_EQ(readFile(window.sessionFile()), "garbage");
    window.importAndGenerate(document());
    put("another process was here");
    window.view().generateRoughEdit();
    window.view().generateRoughEdit();
    EXPECT_EQ(
        window.names("Corvane"), (Names{"session-v1 (kept 2).json", "session-v1 (kept).json", "session-v1.json"}));
    EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept).json")), "garbage");
    EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept 2).json")), "another process was here");
}

/// What is kept, but for its numbers.
std::size_t copies(const TestWindow& window)
{
    return static_cast<std::size_t>(std::ranges::count_if(
        window.names("Corvane"), [](auto& name) { return name.starts_with("session-v1 (kept"); }));
}

TEST(ReplacedSessions, AreCopiedTenTimesAndMoreOnlyWhereTheyCannotBeRestored)
{
    TestWindow one;
    one.importAndGenerate(document());
    SessionStore other(one.sessionFolder);
    const std::string session = readFile(one.sessionFile());
    const auto alternate = [&](const std::string& bytes, int rounds) {
        const std::string_view part = bytes;
        for (int round = 0; round < rounds; ++round) {
            other.write({&part, 1});
            one.set([&](auto& settings) { settings.mainShare = settings.mainShare == 50 ? 60 : 50; });
        }
    };
    alternate("garbage", 3);
    alternate(replaced(session, "{\"version\":1", "{\"version\":2"), 2);
    alternate(replaced(session, "{\"version\":1", "{\"version\":1,\"newer\":[]"), 2);
    alternate(replaced(session, "\"mainShare\":70", "\"mainShare\":95"), 2);
    alternate(session, 6);
    EXPECT_EQ(copies(one), 9U + 10U) << "each save of either found the other's file";
    alternate(session, 10);
    EXPECT_EQ(copies(one), 9U + 10U);
    EXPECT_EQ(one.state().sessionSaveError, std::nullopt);
}

TEST(ReplacedSessions, OfANewerVersionAreKeptWhereverTheyHoldMore)
{
    TestWindow window;
    window.view().importXML(document());
    window.view().addSection();
    window.view().generateRoughEdit();
    const std::string good = readFile(window.sessionFile());
    window.restart();
    EXPECT_EQ(copies(window), 0U) << "its own";
    for (const std::string place :
         {R"({"version":1)", R"({"mainShare":)", R"("history":{)", R"({"items":[{)", R"("sections":[{)",
          R"("cuts":[{)"}) {
        const bool end = place.ends_with('{');
        const std::string newer = replaced(
            good, place, end ? place + R"("newer":null,)" : place.substr(0, 1) + R"("newer":[{}],)" + place.substr(1));
        const std::string_view part = newer;
        replaceFile(window.sessionFile(), {&part, 1});
        window.restart();
        EXPECT_EQ(window.state().error, std::nullopt) << place;
        window.view().generateRoughEdit();
        EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept).json")), newer) << "the restore saves already";
        EXPECT_EQ(copies(window), 1U);
        std::filesystem::remove(window.folder.file("Corvane/session-v1 (kept).json"));
    }
    // As the previous one: first when it is put there, then when the next takes its place.
    const std::string newer = replaced(good, R"({"version":1)", R"({"version":1,"newer":0)");
    const std::string_view part = newer;
    replaceFile(window.sessionFile(), {&part, 1});
    window.quit();
    window.start();
    window.importAndGenerate(replaced(document(), "Concert", "Other"));
    EXPECT_EQ(copies(window), 1U);
    EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (previous).json")), newer);
    window.view().reopenPreviousSession();
    EXPECT_EQ(copies(window), 2U) << "it came back and was saved";
    window.quit();
    replaceFile(window.folder.file("Corvane/session-v1 (previous).json"), {&part, 1});
    window.restart();
    window.view().importXML(document());
    EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (previous) (kept).json")), newer);
}

} // namespace
} // namespace corvane
