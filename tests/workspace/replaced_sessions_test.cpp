#include "session/saved_session.h"
#include "support/documents.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

const Names twoSessions = {"session-v1 (previous).json", "session-v1.json"};

TEST(ReplacedSessions, AreKeptAndBroughtBack)
{
    TestWindow window;
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().error, "There is no previous project to reopen.");
    window.view().importXML(otherProject);
    window.importAndGenerate(document());
    const std::vector<Cut> cuts = window.state().cuts();
    EXPECT_FALSE(window.state().canReopen) << "nothing was generated of the other";
    window.view().importXML(otherProject);
    EXPECT_TRUE(window.state().canReopen);
    window.view().addSection();
    window.view().reopenPreviousSession();
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().settings.sections.size(), 1U) << "settings are work too";
    window.view().edit([](WorkspaceState& state) { state.chosenPreset = state.presetNotice = "of the other project"; });
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Concert");
    EXPECT_EQ(window.state().chosenPreset + window.state().presetNotice, "");
    EXPECT_EQ(window.state().cuts(), cuts);
    // The same for a session that is only stored, because a project arrived before it could be restored.
    window.restart();
    EXPECT_TRUE(window.state().canReopen) << "at the start, too";
    window.quit();
    window.start();
    window.view().importXML(replaced(document(), "Concert", "Third"));
    window.view().windowAppeared();
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Concert");
    EXPECT_EQ(window.names("Corvane"), twoSessions);
    // What cannot be read does not take the place of what can.
    window.quit();
    window.storeSession("{");
    window.start();
    window.view().importXML(document());
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Third");
    EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept).json")), "{");
    window.storeSession("{");
    window.restart();
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Concert") << "into an empty window";
    EXPECT_NO_THROW((void)decodeSession(readFile(window.folder.file("Corvane/" + twoSessions[0])))) << "no exchange";
    window.view().generateRoughEdit();
    window.storeSession(replaced(readFile(window.sessionFile()), "\"mainShare\":70", "\"mainShare\":95"));
    window.restart();
    window.view().importXML(otherProject);
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Concert") << "what is refused takes no place, either";
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
        window.storeSession(newer);
        window.restart();
        EXPECT_EQ(window.state().error, std::nullopt) << place;
        window.view().generateRoughEdit();
        EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept).json")), newer) << "the restore saves already";
        EXPECT_EQ(copies(window), 1U);
        std::filesystem::remove(window.folder.file("Corvane/session-v1 (kept).json"));
    }
}

} // namespace
} // namespace corvane
