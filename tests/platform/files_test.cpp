#include "base/error.h"
#include "platform/kept_files.h"
#include "support/child_process.h"
#include "support/failing_files.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

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
        }
    }
    EXPECT_EQ(readFile(folder.file("file")), "old");
    EXPECT_EQ(folder.names(), (Names{"file", "folder", "link"}));
}

TEST(AbandonedFiles, GoWhenTheirProcessIsGone)
{
    const ScratchFolder folder;
    const pid_t gone = startChild([] {});
    statusOf(gone);
    const std::string prefix = ".corvane-";
    const std::string save = "-0123456789ABCDEF0123456789ABCDEF";
    Names others = {
        prefix + std::to_string(::getpid()) + save,
        prefix + std::to_string(gone) + "-mine",
        prefix + "0" + save,
        prefix + "99999999999" + save,
        prefix + save.substr(1),
        "session-v1.json"};
    std::ranges::sort(others);
    for (const std::string& name : others)
        writeNewFile(folder.file(name), "");
    writeNewFile(folder.file(prefix + std::to_string(gone) + save), "");
    removeAbandonedFiles(folder.path());
    EXPECT_EQ(folder.names(), others);
}

/// A folder with one of everything that is no file of its own, and links to them.
struct Oddities : ScratchFolder {
    Oddities()
    {
        ::mkfifo(file("pipe").c_str(), 0600);
        std::filesystem::create_directory(file("folder"));
        writeNewFile(file("real"), "old");
        for (const auto& [name, target] : std::map<std::string, std::string>{
                 {"device", "/dev/zero"},
                 {"gone", "none/x"},
                 {"circle", "circle"},
                 {"link", "folder/link"},
                 {"folder/link", "../real"},
                 {"to folder", "folder"},
                 {"to pipe", "pipe"}})
            std::filesystem::create_symlink(target, file(name));
    }
};

const std::map<std::string, std::string> oddityReasons = {
    {"pipe", "it is a named pipe and not a file"},
    {"to pipe", "it is a named pipe and not a file"},
    {"device", "it is a device and not a file"},
    {"gone", "it is a link to none/x, and nothing is there"},
    {"circle", "it is a link to circle, and leads back to itself"},
    {"folder", "Is a directory"},
    {"to folder", "Is a directory"}};

TEST(Reading, TakesNothingButFilesAndWaitsForNothing)
{
    const Oddities folder;
    for (const auto& [name, reason] : oddityReasons)
        EXPECT_REFUSED(readFile(folder.file(name)), "Cannot read " + name + ": " + reason + ".");
    EXPECT_EQ(readFile(folder.file("link")), "old");
    EXPECT_EQ(readFile("/proc/self/status"), "") << "no more than its size";
    std::filesystem::resize_file(folder.file("real"), std::uintmax_t{1} << 20U);
    EXPECT_EQ(readFile(folder.file("real"), std::uint64_t{1} << 20U).size(), std::uintmax_t{1} << 20U);
    std::filesystem::resize_file(folder.file("real"), (std::uintmax_t{1} << 20U) + 1);
    EXPECT_REFUSED(
        readFile(folder.file("real"), std::uint64_t{1} << 20U),
        "Cannot read real: it is larger than 1 MB, which is the limit.");
}

/// Remembers what took another name.
struct RenamingCalls : FileCalls {
    std::string renamed;
    int exchange(const std::string& one, const std::string& other) override
    {
        renamed = one;
        return FileCalls::exchange(one, other);
    }
};

TEST(Replacing, FollowsLinksAndTakesNothingElseAway)
{
    const Oddities folder;
    const auto before = folder.names();
    const std::string_view bytes = "new";
    RenamingCalls calls;
    for (const auto& [name, reason] : oddityReasons) {
        EXPECT_REFUSED(
            replaceFile(folder.file(name), {&bytes, 1}, calls), "Cannot write " + name + ": " + reason + ".");
        EXPECT_EQ(folder.names(), before) << name;
    }
    replaceFile(folder.file("folder/link"), {&bytes, 1}, calls);
    EXPECT_EQ(readFile(folder.file("real")), "new");
    EXPECT_EQ(folderOf(calls.renamed), folder.path()) << "beside the file, not beside the link";
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("folder/link")));
    EXPECT_EQ(folder.names(), before);
    const auto mode = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
    std::filesystem::permissions(folder.file("real"), mode);
    for (const bool nameless : {true, false}) {
        FailingFiles other;
        other.nameless = nameless;
        replaceFile(folder.file("link"), {&bytes, 1}, other);
        EXPECT_EQ(std::filesystem::status(folder.file("real")).permissions(), mode) << "nobody else may read it";
    }
    EXPECT_REFUSED(
        makeFolders(folder.file("gone/x")), "Cannot make gone: it is a link to none/x, and nothing is there.");
}

TEST(KeptFiles, AreCopiesOrWhatCannotBeCopied)
{
    const Oddities folder;
    const auto keep = [&](const char* name) {
        return std::filesystem::path(keepAside(folder.file(name), 3, FileCalls::system())).filename().string();
    };
    EXPECT_EQ(keep("real"), "real (kept)");
    EXPECT_EQ(keep("link"), "link (kept)");
    EXPECT_EQ(keep("pipe"), "pipe (kept)");
    EXPECT_EQ(readFile(folder.file("link (kept)")), "old");
    EXPECT_FALSE(somethingNamed(folder.file("pipe"))) << "it has the other name";
    writeNewFile(folder.file("a.json"), "more than 3");
    EXPECT_EQ(keep("a.json"), "a (kept).json");
    writeNewFile(folder.file("a.json"), "abc");
    EXPECT_EQ(keep("a.json"), "a (kept 2).json");
    for (const char* name : {"a (kept by me).json", "a (kept 1).json", "a (kept 02).json", "a (kept 2)b.json"})
        writeNewFile(folder.file(name), "of somebody else");
    EXPECT_EQ(keptBeside(folder.file("a.json")).size(), 2U);
    EXPECT_EQ(moveAside(folder.file("to folder"), FileCalls::system()), folder.file("to folder (kept)"));
    for (const char* name : {"folder", "gone", "device"})
        EXPECT_THROW(keep(name), PlatformError) << name;
}

} // namespace
} // namespace corvane
