#include "support/documents.h"
#include "support/test_window.h"
#include "workspace/captions.h"

#include <gtest/gtest.h>

#include <fstream>

namespace corvane {
namespace {

using namespace test;

/// Counts the writes of the session file.
struct CountingCalls : FileCalls {
    int saves = 0;
    int sync(int file) override
    {
        saves += 1;
        return FileCalls::sync(file);
    }
};

TEST(OneDoor, GivesOneNoticeAndOneSaveForEachOperation)
{
    CountingCalls calls;
    TestWindow window;
    window.sessionCalls = &calls;
    window.start();
    std::vector<Changes> notices;
    const auto subscription = window.view().observe([&](const Changes& changes) { notices.push_back(changes); });
    const std::pair<const char*, std::function<void(ContentView&)>> operations[] = {
        {"import", [](auto& view) { view.importXML(document()); }},
        {"generate", [](auto& view) { view.generateRoughEdit(); }},
        {"two settings and one that follows",
         [](auto& view) {
             view.edit([](WorkspaceState& state) { state.settings.mainShare = 30, state.settings.mainMaximum = 2; });
         }},
        {"back, with settings that change", [](auto& view) { view.stepBack(); }},
        {"a bound", [](auto& view) { view.setBound(&EditSettings::otherMinimum, 50); }}};
    for (const auto& [name, operation] : operations) {
        notices.clear();
        calls.saves = 0;
        operation(window.view());
        EXPECT_EQ(notices.size(), 1U) << name;
        EXPECT_EQ(calls.saves, 2) << name << ": the file and its folder";
    }
    EXPECT_TRUE(notices.back().test(static_cast<std::size_t>(Changed::settings)));
    EXPECT_FALSE(notices.back().test(static_cast<std::size_t>(Changed::history)));
    window.view().setBound(&EditSettings::otherMinimum, 50);
    window.view().importXML("no document");
    EXPECT_EQ(notices.size(), 2U) << "only the alert";
    EXPECT_EQ(calls.saves, 2) << "nothing changed";
}

TEST(OneDoor, LetsEditsOfObserversWaitTheirTurn)
{
    TestWindow window;
    window.view().importXML(document());
    std::vector<double> seen, order;
    auto subscription = window.view().observe([&](const Changes&) {
        const double told = window.state().settings.mainShare;
        seen.push_back(told);
        if (told < 30) {
            window.set([](auto& edit) { edit.mainShare += 5; });
            window.view().edit([&, told](WorkspaceState&) { order.push_back(told); });
            EXPECT_EQ(window.state().settings.mainShare, told) << "not while others are still told";
        }
    });
    window.set([](auto& edit) { edit.mainShare = 20; });
    EXPECT_EQ(seen, (std::vector<double>{20, 25, 30}));
    EXPECT_EQ(order, (std::vector<double>{20, 25}));
    subscription.end();
    const auto failing = [](auto& edit) { edit.mainShare = 90, throw PlatformError("no"); };
    EXPECT_THROW(window.set(failing), PlatformError);
    EXPECT_EQ(window.state().settings.mainShare, 30) << "what throws has changed nothing";
    EXPECT_EQ(seen.size(), 3U);
}

TEST(OneDoor, ShowsEveryAlertTheEarlierFirst)
{
    TestWindow window;
    window.storeSession("{");
    window.defaults.values["Corvane.savedPresets.v1"] = "[1]";
    window.restart();
    const std::string presets = "Saved presets could not be read. Their stored data has been kept.";
    ASSERT_EQ(window.view().alerts().size(), 2U);
    EXPECT_TRUE(window.view().alerts().front().starts_with("The previous session could not be restored. "));
    EXPECT_EQ(window.state().error, presets);
    window.view().dismissError();
    EXPECT_EQ(window.state().error, std::nullopt);
    EXPECT_EQ(window.view().alerts(), std::deque<std::string>{presets});
    window.view().dismissError();
    for (int file = 1; file <= 300; ++file) {
        window.inbox.setImportError("The same.");
        window.inbox.setImportError("File " + std::to_string(file));
    }
    EXPECT_EQ(window.view().alerts().size(), 20U) << "one that comes again is told once, and there is an end";
    EXPECT_EQ(window.view().alerts().back(), "282 more messages came. The last one: File 300");
}

TEST(OneDoor, LetsDeliveriesWaitWhileADialogIsOpen)
{
    TestWindow window;
    window.importAndGenerate(document());
    window.dialogs.answer = window.folder.file("exports");
    window.dialogs.meanwhile = [&] {
        window.inbox.setXMLData(replaced(document(), "Concert", "Arrived"));
        EXPECT_EQ(window.state().loaded->imported.name, "Concert");
        window.view().chooseProjectFile();
        EXPECT_EQ(window.dialogs.asked, 1) << "no second dialog over the first";
    };
    window.view().exportRoughEdit();
    EXPECT_EQ(window.names("exports").front(), "Concert Corvane.fcpxml");
    EXPECT_EQ(window.dialogs.remembered, std::vector<std::string>{window.folder.file("exports")});
    EXPECT_EQ(window.state().loaded->imported.name, "Arrived");
    EXPECT_EQ(window.inbox.xmlData(), std::nullopt);
    window.quit();
    window.inbox.setXMLData(replaced(document(), "Concert", "Early"));
    window.start();
    window.view().windowAppeared();
    EXPECT_EQ(window.state().loaded->imported.name, "Early") << "it arrived before there was a window";
}

TEST(OneDoor, KeepsAccessToAnExportUntilFinalCutReports)
{
    TestWindow window;
    const std::string bundle = window.folder.file("Concert.fcpxmld/");
    std::filesystem::create_directory(bundle);
    std::ofstream(bundle + "Info.fcpxml") << document();
    for (const std::string& file : {window.folder.file("gone.fcpxml"), bundle})
        window.view().openProjectFile(file);
    window.view().generateRoughEdit();
    window.dialogs.answer = window.folder.file("exports");
    window.view().exportRoughEdit();
    EXPECT_EQ(window.dialogs.firstFolder, window.folder.path()) << "beside the bundle, not in it";
    EXPECT_EQ(window.scope.held, 1);
    window.finalCut.reports.front()(std::nullopt);
    EXPECT_EQ(window.scope.held, 0);
    window.importAndGenerate(document());
    window.dialogs.answer = "/proc";
    window.view().exportRoughEdit();
    EXPECT_EQ(window.dialogs.firstFolder, "") << "this project came without a file";
    EXPECT_EQ(window.dialogs.remembered.size(), 1U) << "not one that takes no files";
    window.restart();
    window.finalCut.reports.back()(std::nullopt); // to a window that is gone
}

} // namespace
} // namespace corvane
