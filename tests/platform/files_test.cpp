#include "platform/error.h"
#include "support/child_process.h"
#include "support/failing_files.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <random>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

TEST(NewFiles, AppearWholeOrNotAtAllWhicheverCallFails)
{
    for (const bool nameless : {true, false}) {
        for (int failing = 0;; ++failing) {
            const ScratchFolder folder;
            FailingFiles calls(failing);
            calls.nameless = nameless;
            try {
                writeNewFile(folder.file("edit"), "twelve bytes", calls);
                EXPECT_EQ(readFile(folder.file("edit")), "twelve bytes");
                EXPECT_EQ(folder.names(), Names{"edit"});
                ASSERT_EQ(calls.calls, failing) << "no call failed";
                ASSERT_GT(failing, 6);
                break;
            } catch (const PlatformError& error) {
                EXPECT_STREQ(error.what(), "Cannot write edit: No space left on device.");
                EXPECT_EQ(folder.names(), Names{}) << failing;
            }
        }
    }
}

TEST(NewFiles, NeverReplaceAnything)
{
    const ScratchFolder folder;
    writeNewFile(folder.file("file"), "old");
    std::filesystem::create_symlink("nowhere", folder.file("link"));
    std::filesystem::create_directory(folder.file("folder"));
    for (const bool nameless : {true, false}) {
        for (const std::string name : {"file", "link", "folder"}) {
            FailingFiles calls;
            calls.nameless = nameless;
            EXPECT_REFUSED(writeNewFile(folder.file(name), "new", calls), "Cannot write " + name + ": File exists.");
            EXPECT_TRUE(somethingNamed(folder.file(name)));
        }
    }
    EXPECT_EQ(readFile(folder.file("file")), "old");
    EXPECT_EQ(folder.names(), (Names{"file", "folder", "link"}));
    EXPECT_REFUSED(writeNewFile(folder.file("none/file"), ""), "Cannot write file: No such file or directory.");
    EXPECT_REFUSED(readFile(folder.file("none")), "Cannot read none: No such file or directory.");
}

TEST(NewFiles, LeaveNothingWhenTheDiskOrTheProcessEnds)
{
    const ScratchFolder folder;
    const std::string megabytes(std::size_t{4} << 20U, 'x');
    std::mt19937 random(1);
    int whole = 0;
    for (int round = 0; round < 60; ++round) {
        const pid_t child = startChild([&] {
            if (round == 0) {
                const rlimit limit = {1 << 20, 1 << 20};
                ::setrlimit(RLIMIT_FSIZE, &limit);
                EXPECT_NE(::signal(SIGXFSZ, SIG_IGN), SIG_ERR);
            }
            writeNewFile(folder.file("edit"), megabytes);
        });
        if (round > 0) {
            ::usleep(static_cast<useconds_t>(random() % 30000));
            ::kill(child, SIGKILL);
        }
        statusOf(child);
        if (somethingNamed(folder.file("edit"))) {
            ASSERT_EQ(readFile(folder.file("edit")).size(), megabytes.size());
            std::filesystem::remove(folder.file("edit"));
            ++whole;
            ASSERT_NE(round, 0) << "larger than the limit";
        }
        ASSERT_EQ(folder.names(), Names{});
    }
    std::cout << whole << " of 60 writes were whole before the kill\n";
}

TEST(AbandonedFiles, GoWhenTheirProcessIsGone)
{
    const ScratchFolder folder;
    const pid_t gone = startChild([] {});
    statusOf(gone);
    const std::string prefix = ".corvane-";
    Names others = {
        prefix + std::to_string(::getpid()) + "-a",
        prefix + "-1-a",
        prefix + "0-a",
        prefix + "99999999999-a",
        prefix + "a",
        "session-v1.json"};
    std::ranges::sort(others);
    for (const std::string& name : others)
        writeNewFile(folder.file(name), "");
    writeNewFile(folder.file(prefix + std::to_string(gone) + "-a"), "");
    removeAbandonedFiles(folder.path());
    EXPECT_EQ(folder.names(), others);
}

} // namespace
} // namespace corvane
