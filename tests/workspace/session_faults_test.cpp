#include "import/project_import.h"
#include "session/saved_session.h"
#include "support/child_process.h"
#include "support/documents.h"
#include "support/failing_files.h"
#include "support/test_window.h"
#include "workspace/captions.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <csignal>
#include <set>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

/// A window whose calls for its session can be made to fail.
struct FaultyWindow : TestWindow {
    FailingFiles calls;
    FaultyWindow()
    {
        sessionCalls = &calls;
        start();
    }
};

TEST(SessionFaults, KeepTheOldFileWhicheverCallFails)
{
    FaultyWindow window;
    FailingFiles& calls = window.calls;
    window.importAndGenerate(document());
    int refused = 0;
    for (int failing = 0;; ++failing) {
        const std::string before = readFile(window.sessionFile());
        calls.calls = 0;
        calls.failing = failing;
        window.set([&](auto& edit) { edit.mainShare = 10 + failing; });
        if (calls.calls <= failing)
            break; // no call was left to fail
        if (!window.state().sessionSaveError) {
            EXPECT_NE(readFile(window.sessionFile()), before) << "nameless files refused: another way was found";
        } else {
            EXPECT_EQ(
                window.state().sessionSaveError,
                "Session could not be saved: Cannot write session-v1.json: No space left on device.");
            EXPECT_EQ(readFile(window.sessionFile()), before);
            ++refused;
        }
        EXPECT_EQ(window.names("Corvane"), Names{"session-v1.json"}) << failing;
    }
    EXPECT_GT(refused, 8);
    EXPECT_EQ(window.state().sessionSaveError, std::nullopt) << "the next save that works clears the line";
}

TEST(SessionFaults, KeepBothSessionsWhicheverCallFailsWhileTheyChangePlaces)
{
    int calls = 0;
    for (int failing = 0; failing <= calls; ++failing) {
        FaultyWindow window;
        FailingFiles& faulty = window.calls;
        for (const char* name : {"Concert", "Other"}) {
            window.importAndGenerate(replaced(document(), "Concert", name));
        }
        faulty.calls = 0;
        faulty.failing = failing;
        window.view().reopenPreviousSession();
        calls = faulty.calls;
        const bool refused = window.state().error.has_value();
        EXPECT_EQ(window.state().loaded->imported.name, refused ? "Other" : "Concert") << failing;
        EXPECT_EQ(window.state().history.items.size(), 1U);
        if (refused) {
            EXPECT_EQ(window.names("Corvane"), (Names{"session-v1 (previous).json", "session-v1.json"})) << failing;
        }
        faulty.failing = -1;
        window.restart();
        std::set<std::string> found = {window.state().loaded->imported.name};
        EXPECT_TRUE(found.contains(refused ? "Other" : "Concert")) << failing;
        for (const std::string& file : window.names("Corvane")) {
            if (file != "session-v1.json")
                found.insert(
                    importProject(decodeSession(readFile(window.folder.file("Corvane/" + file))).sourceXML).name);
        }
        EXPECT_EQ(found, (std::set<std::string>{"Concert", "Other"})) << failing;
    }
    EXPECT_GT(calls, 15);
}

TEST(SessionFaults, KeepAnothersFileOnceWhicheverCallFails)
{
    int calls = 0;
    for (int failing = 0; failing <= calls; ++failing) {
        FaultyWindow window;
        FailingFiles& faulty = window.calls;
        window.view().importXML(document());
        const std::string_view anothers = "another process was here";
        replaceFile(window.sessionFile(), {&anothers, 1});
        faulty.calls = 0;
        faulty.failing = failing;
        window.view().generateRoughEdit();
        calls = faulty.calls;
        faulty.failing = -1;
        window.view().generateRoughEdit();
        EXPECT_EQ(window.names("Corvane"), (Names{"session-v1 (kept).json", "session-v1.json"})) << failing;
        EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept).json")), anothers) << failing;
    }
    EXPECT_GT(calls, 15);
}

TEST(SessionFaults, KeepAnEditWhoseSaveFailedWhenAnotherProjectComes)
{
    FaultyWindow window;
    FailingFiles& calls = window.calls;
    window.view().importXML(document());
    calls.failing = calls.calls;
    window.view().generateRoughEdit();
    ASSERT_NE(window.state().sessionSaveError, std::nullopt);
    std::filesystem::create_directory(window.folder.file("Corvane/session-v1 (previous).json"));
    window.view().importXML(replaced(document(), "Concert", "Other"));
    const std::string kept = readFile(window.folder.file("Corvane/session-v1 (kept).json"));
    EXPECT_EQ(decodeSession(kept).history.items.size(), 1U);

    FaultyWindow again;
    again.importAndGenerate(document());
    again.view().importXML(replaced(document(), "Concert", "Other"));
    again.calls.failing = again.calls.calls;
    again.view().generateRoughEdit();
    ASSERT_NE(again.state().sessionSaveError, std::nullopt);
    again.view().reopenPreviousSession();
    const std::string replacedOne = readFile(again.folder.file("Corvane/session-v1 (previous).json"));
    EXPECT_EQ(decodeSession(replacedOne).history.items.size(), 1U);
}

TEST(SessionFaults, KeepAReplacedEditThatNoFileTook)
{
    FaultyWindow window;
    window.importAndGenerate(document());
    window.calls.full = true;
    window.view().generateRoughEdit();
    window.view().importXML(replaced(document(), "Concert", "Other"));
    EXPECT_EQ(window.state().loaded->imported.name, "Other");
    window.calls.full = false;
    std::filesystem::create_directory(window.folder.file("Corvane/session-v1 (previous).json"));
    window.view().saveAgain();
    EXPECT_EQ(
        quitQuestion(window.view()), "The previous session could not be kept: Cannot read session-v1 (previous).json: "
                                     "Is a directory. Quit anyway?");
    std::filesystem::remove(window.folder.file("Corvane/session-v1 (previous).json"));
    window.view().saveAgain();
    EXPECT_EQ(quitQuestion(window.view()), std::nullopt);
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Concert");
    EXPECT_EQ(window.state().history.items.size(), 2U);
}

TEST(SessionFaults, TellWhatStandsInTheWay)
{
    TestWindow window;
    window.view().importXML(document());
    std::filesystem::remove(window.sessionFile());
    window.view().generateRoughEdit();
    EXPECT_EQ(window.state().sessionSaveError, std::nullopt) << "a file that vanished is written again";
    std::filesystem::remove(window.sessionFile());
    std::filesystem::create_directory(window.sessionFile());
    window.view().generateRoughEdit();
    EXPECT_EQ(
        window.state().sessionSaveError, "Session could not be saved: Cannot read session-v1.json: Is a directory.");
    std::filesystem::remove(window.sessionFile());
    std::filesystem::create_symlink("elsewhere", window.sessionFile());
    window.view().generateRoughEdit();
    EXPECT_EQ(
        quitQuestion(window.view()),
        "Session could not be saved: Cannot write session-v1.json: it is a link to elsewhere, "
        "and nothing is there. Quit anyway?");
    const std::string elsewhere = window.folder.file("Corvane/elsewhere");
    writeNewFile(elsewhere, "of another program");
    window.view().saveAgain();
    EXPECT_EQ(quitQuestion(window.view()), std::nullopt);
    EXPECT_EQ(decodeSession(readFile(elsewhere)).history.items.size(), 3U) << "the link stays and is followed";
    EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept).json")), "of another program");
}

void inProcess(const std::function<void()>& work)
{
    const pid_t child = startChild([&] {
        work();
        if (testing::Test::HasFailure())
            throw std::runtime_error("as above");
    });
    EXPECT_EQ(statusOf(child), 0);
}

TEST(SessionFaults, AreToldOfFullDisksLimitsAndForbiddenFolders)
{
    TestWindow window;
    window.view().importXML(document());
    const std::string before = readFile(window.sessionFile());
    const auto expectRefused = [&](const std::string& reason) {
        window.view().generateRoughEdit();
        EXPECT_EQ(
            window.state().sessionSaveError,
            "Session could not be saved: Cannot write session-v1.json: " + reason + ".");
        EXPECT_EQ(readFile(window.sessionFile()), before);
        EXPECT_EQ(window.names("Corvane"), Names{"session-v1.json"});
    };
    inProcess([&] {
        const rlimit limit = {512, 512};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        surviveFileSizeLimit();
        expectRefused("File too large");
    });
    if (::geteuid() != 0)
        GTEST_SKIP() << "mounting and changing the user need root";
    inProcess([&] {
        ::chmod(window.folder.path().c_str(), 0755);
        ::chmod(window.folder.file("Corvane").c_str(), 0555);
        ASSERT_EQ(::seteuid(65534), 0);
        expectRefused("Permission denied");
        ASSERT_EQ(::seteuid(0), 0);
        ::chmod(window.folder.file("Corvane").c_str(), 0755);
    });
    inProcess([&] { // of another user, who may not read the session
        ::chmod(window.folder.file("Corvane").c_str(), 0777);
        ::chmod(window.sessionFile().c_str(), 0);
        ASSERT_EQ(::seteuid(65534), 0);
        window.restart();
        EXPECT_NE(window.state().error, std::nullopt);
        window.view().importXML(document());
        EXPECT_EQ(window.state().sessionSaveError, std::nullopt);
        EXPECT_EQ(window.names("Corvane"), (Names{"session-v1 (kept).json", "session-v1.json"}));
        ASSERT_EQ(::seteuid(0), 0);
    });
    std::filesystem::create_directory(window.folder.file("small"));
    if (::mount("tmpfs", window.folder.file("small").c_str(), "tmpfs", 0, "size=16k") != 0)
        GTEST_SKIP() << "no tmpfs can be mounted here";
    SessionStore store([&] { return window.folder.file("small"); });
    const std::string first(3000, 'a');
    const std::string second(30000, 'b');
    const std::string_view small = first;
    const std::string_view large = second;
    store.write({&small, 1});
    EXPECT_THROW(store.write({&large, 1}), PlatformError);
    EXPECT_EQ(readFile(store.sessionFileURL()), first);
    EXPECT_EQ(window.names("small"), Names{"session-v1.json"});
    ::umount(window.folder.file("small").c_str());
}

} // namespace
} // namespace corvane
