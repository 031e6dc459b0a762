#include "desktop/start_lock.h"
#include "platform/files.h"
#include "support/child_process.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>
#include <memory>

namespace corvane {
namespace {

using namespace test;
using Attempt = StartLock::Attempt;

TEST(StartLock, IsHeldByLivingProcessesWhateverStandsInItsFile)
{
    const ScratchFolder folder;
    const std::string path = folder.file("lock");
    const std::vector<std::function<void()>> leftovers = {
        [] {}, [&] { writeNewFile(path, ""); }, [&] { writeNewFile(path, "1\nanother\nelsewhere\n"); },
        [&] { ::mkfifo(path.c_str(), 0); }, [&] { std::filesystem::create_symlink("/dev/zero", path); }};
    for (const auto& leave : leftovers) {
        leave();
        {
            StartLock lock(path);
            EXPECT_EQ(lock.tryToHold(), Attempt::held);
            EXPECT_EQ(StartLock(path).tryToHold(), Attempt::heldByAnother);
            EXPECT_TRUE(somethingNamed(path)) << "who did not get it does not take it away";
        }
        EXPECT_FALSE(somethingNamed(path));
    }
    std::filesystem::create_directory(path);
    EXPECT_EQ(StartLock(path).tryToHold(), Attempt::impossible);
    std::filesystem::remove(path);
    const pid_t holder = startChild([&] {
        StartLock lock(path);
        EXPECT_EQ(lock.tryToHold(), Attempt::held);
        writeNewFile(folder.file("held"), "");
        ::pause();
    });
    while (!somethingNamed(folder.file("held")))
        ::usleep(1000);
    StartLock lock(path);
    EXPECT_EQ(lock.tryToHold(), Attempt::heldByAnother);
    ::kill(holder, SIGKILL);
    statusOf(holder);
    EXPECT_EQ(lock.tryToHold(), Attempt::held);
}

} // namespace
} // namespace corvane
