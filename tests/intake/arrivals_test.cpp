#include "intake/final_cut/pasteboard_rule.h"
#include "intake/project_file.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <ranges>

namespace corvane {
namespace {

using Text = std::optional<std::string>;
using Texts = std::vector<std::string>;

struct Drag : Pasteboard {
    std::map<std::string, Text> entries;
    Texts files;
    [[nodiscard]] Texts types() const override
    {
        return {std::views::keys(entries).begin(), std::views::keys(entries).end()};
    }
    [[nodiscard]] Text data(const std::string& type) const override { return entries.at(type); }
    [[nodiscard]] Texts filePaths() const override { return files; }
};

TEST(ReadProjectFile, ReadsFilesAndBundles)
{
    const test::ScratchFolder scratch;
    for (const char* folder : {"b.fcpxmld", "c.FcpXmlD", "empty.fcpxmld", "folder.fcpxml"})
        std::filesystem::create_directory(scratch.file(folder));
    for (const char* name : {"A.FCPXML", "b.fcpxmld/Info.fcpxml", "c.FcpXmlD/Info.fcpxml", "notes.txt", "fcpxml"})
        std::ofstream(scratch.file(name)) << name;
    const ProjectFileContent choose{"", "Choose a .fcpxml file or .fcpxmld bundle."};
    const std::string notText =
        ": its name, or that of a folder on the way to it, is not UTF-8 text. Rename it, then open it again.";
    const std::map<std::string, ProjectFileContent> expected = {
        {"A.FCPXML", {"A.FCPXML", {}}},
        {"b.fcpxmld", {"b.fcpxmld/Info.fcpxml", {}}},
        {"c.FcpXmlD/", {"c.FcpXmlD/Info.fcpxml", {}}},
        {"empty.fcpxmld", {"", "Cannot read Info.fcpxml: No such file or directory."}},
        {"missing.v2.fcpxml", {"", "Cannot read missing.v2.fcpxml: No such file or directory."}},
        {"folder.fcpxml", {"", "Cannot read folder.fcpxml: Is a directory."}},
        {"notes.txt", choose},
        {"fcpxml", choose},
        {"A.FCPXML ", choose},
        {"caf\xE9.fcpxml", {"", "Cannot read caf\xE9.fcpxml" + notText}},
        {"caf\xEF\xBF\xBD.fcpxml", {"", "Cannot read caf\xEF\xBF\xBD.fcpxml" + notText}},
        {"b.fcpxmld/Info", choose},
        {std::string("notes.txt\0.fcpxml", 17), choose}};
    for (const auto& [name, content] : expected)
        EXPECT_EQ(readProjectFile(scratch.file(name)), content) << name << content.error.value_or("");
    EXPECT_EQ(addressRefusal("/a/https://b.fcpxml"), std::nullopt);
}

TEST(Drops, DeliverTheNewestXmlThatIsThereOrTheOneProjectFile)
{
    const std::string xml = "com.apple.finalcutpro.xml", v = xml + ".v1-", file = "public.file-url";
    const Text refusal = "Drop one project from Final Cut’s browser, or one .fcpxml file or .fcpxmld bundle.";
    EXPECT_EQ(finalCutXMLTypes(), (Texts{v + "14", v + "13", v + "12", v + "11", v + "10", v + "9", xml}));
    const auto lights = [&](std::map<std::string, Text> entries, Texts files, const Text& data, const Text& url) {
        Drag drag;
        drag.entries = std::move(entries);
        drag.files = std::move(files);
        XMLInbox inbox;
        EXPECT_EQ(performDrag(drag, inbox), data || url);
        EXPECT_EQ(inbox.xmlData(), data);
        EXPECT_EQ(inbox.url(), url);
        EXPECT_EQ(inbox.importError(), data || url ? std::nullopt : refusal);
        return offersProject(drag);
    };
    EXPECT_TRUE(lights({{v + "11", "new"}, {xml, "old"}}, {}, "new", {}));
    EXPECT_TRUE(lights({{v + "9", "9"}, {v + "10", "10"}}, {}, "10", {}));
    EXPECT_TRUE(lights({{v + "14", ""}, {v + "13", {}}, {v + "12", "12"}}, {}, "12", {}));
    EXPECT_TRUE(lights({{xml, "xml"}, {file, "x"}}, {"/a.fcpxml"}, "xml", {}));
    EXPECT_TRUE(lights({{xml, ""}, {file, "x"}}, {"/a.FCPXMLD/"}, {}, "/a.FCPXMLD/"));
    EXPECT_TRUE(lights({{file, "x"}}, {"/a.fcpxml", "/b.fcpxml"}, {}, {}));
    EXPECT_TRUE(lights({{file, "x"}}, {"/a.txt"}, {}, {}));
    EXPECT_TRUE(lights({{v + "14", ""}}, {}, {}, {}));
    EXPECT_FALSE(lights({{v + "15", "15"}, {v + "8", "8"}, {"public.text", "t"}}, {}, {}, {}));
}

TEST(Inbox, TellsEveryAssignmentWhateverItsObserversDo)
{
    XMLInbox inbox;
    std::string log;
    Subscription second, late;
    const auto first = inbox.observe([&] {
        log += "a" + inbox.url().value_or("");
        if (inbox.url() == "1")
            inbox.setURL({});
        else if (inbox.url() == "2")
            late = inbox.observe([&] { log += "c"; });
        else if (inbox.url() == "3")
            second.end();
    });
    second = inbox.observe([&] { log += "b"; });
    const auto heard = [&](const Text& url) {
        log.clear();
        inbox.setURL(url);
        return log;
    };
    EXPECT_EQ(heard("1"), "a1abb");
    EXPECT_EQ(heard("2"), "a2b") << "an observer hears what comes after it";
    EXPECT_EQ(heard("0"), "a0bc");
    EXPECT_EQ(heard("0"), "a0bc") << "also when nothing changes";
    EXPECT_EQ(heard("3"), "a3c") << "ended before its turn";
}

} // namespace
} // namespace corvane
