#include "import/project_import.h"
#include "session/saved_session.h"
#include "support/documents.h"
#include "support/failing_files.h"
#include "support/test_window.h"
#include "workspace/captions.h"

#include <gtest/gtest.h>

#include <set>

namespace corvane {
namespace {

using namespace test;

/// A window whose calls for its session can be made to fail.
struct FaultyWindow : TestWindow {
    FailingFiles calls;
    FaultyWindow()
    {
        sessionCalls = &calls;
        start();
    }
};

TEST(SessionFaults, KeepBothSessionsWhicheverCallFailsWhileTheyChangePlaces)
{
    int calls = 0;
    for (int failing = 0; failing <= calls; ++failing) {
        SCOPED_TRACE(failing);
        FaultyWindow window;
        window.importAndGenerate(document());
        window.importAndGenerate(otherProject);
        window.calls.calls = 0;
        window.calls.failing = failing;
        window.view().reopenPreviousSession();
        calls = window.calls.calls;
        window.calls.failing = -1;
        const bool refused = window.state().error.has_value();
        const std::string shown = refused ? "Other" : "Concert";
        EXPECT_EQ(window.state().loaded->imported.name, shown);
        EXPECT_EQ(window.state().history.items.size(), 1U);
        EXPECT_TRUE(!refused || window.names("Corvane").size() == 2);
        window.restart();
        EXPECT_EQ(window.state().loaded->imported.name, shown);
        std::set<std::string> found = {shown};
        for (const std::string& file : window.names("Corvane")) {
            if (file != "session-v1.json")
                found.insert(
                    importProject(decodeSession(readFile(window.folder.file("Corvane/" + file))).sourceXML).name);
        }
        EXPECT_EQ(found, (std::set<std::string>{"Concert", "Other"}));
    }
    EXPECT_GT(calls, 8);
}

TEST(SessionFaults, KeepAnEditWhoseSaveFailedWhenAnotherProjectComes)
{
    FaultyWindow window;
    window.importAndGenerate(document());
    window.calls.full = true;
    window.view().generateRoughEdit();
    window.view().importXML(otherProject);
    EXPECT_EQ(window.state().loaded->imported.name, "Other");
    window.calls.full = false;
    const std::string previous = window.folder.file("Corvane/session-v1 (previous).json");
    std::filesystem::create_directory(previous);
    window.view().saveAgain();
    EXPECT_EQ(decodeSession(readFile(window.folder.file("Corvane/session-v1 (kept).json"))).history.items.size(), 1U)
        << "it is in no other file";
    EXPECT_EQ(
        quitQuestion(window.view()), "The previous session could not be kept: Cannot read session-v1 (previous).json: "
                                     "Is a directory. Quit anyway?");
    std::filesystem::remove(previous);
    window.view().saveAgain();
    EXPECT_EQ(quitQuestion(window.view()), std::nullopt);
    window.calls.full = true;
    window.view().generateRoughEdit();
    window.calls.full = false;
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Concert");
    EXPECT_EQ(window.state().history.items.size(), 2U);
    EXPECT_EQ(decodeSession(readFile(previous)).history.items.size(), 1U) << "an edit is kept by a reopening, too";
}

TEST(SessionFaults, TellWhatStandsInTheWay)
{
    TestWindow window;
    window.view().importXML(document());
    std::filesystem::remove(window.sessionFile());
    window.view().generateRoughEdit();
    EXPECT_EQ(window.state().sessionSaveError, std::nullopt) << "a file that vanished is written again";
    window.breakSessionFile();
    window.view().generateRoughEdit();
    EXPECT_EQ(
        window.state().sessionSaveError, "Session could not be saved: Cannot read session-v1.json: Is a directory.");
    std::filesystem::remove(window.sessionFile());
    std::filesystem::create_symlink("elsewhere", window.sessionFile());
    const std::string elsewhere = window.folder.file("Corvane/elsewhere");
    writeNewFile(elsewhere, "of another program");
    window.view().saveAgain();
    EXPECT_EQ(decodeSession(readFile(elsewhere)).history.items.size(), 2U) << "the link stays and is followed";
    EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept).json")), "of another program");
}

} // namespace
} // namespace corvane
