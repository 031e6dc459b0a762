#include "session/saved_session.h"
#include "support/documents.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

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
    window.view().importXML(replaced(document(), "Concert", "Other"));
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
        window.state().sessionSaveError, "The previous session could not be kept: Cannot write session-v1 "
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

} // namespace
} // namespace corvane
