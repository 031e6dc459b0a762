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

bool has(const Changes& changes, Changed what)
{
    return changes.test(static_cast<std::size_t>(what));
}

TEST(OneDoor, GivesOneNoticeAndOneSaveForEachOperation)
{
    CountingCalls calls;
    TestWindow window;
    window.sessionCalls = &calls;
    window.start();
    std::vector<Changes> notices;
    window.view().observe([&](const Changes& changes) { notices.push_back(changes); });
    const auto expectOne = [&](const char* operation) {
        EXPECT_EQ(notices.size(), 1U) << operation;
        EXPECT_EQ(calls.saves, 2) << operation << ": the file and its folder";
        notices.clear();
        calls.saves = 0;
    };
    window.view().importXML(document());
    expectOne("import");
    window.view().generateRoughEdit();
    EXPECT_TRUE(has(notices.back(), Changed::cuts) && has(notices.back(), Changed::history));
    EXPECT_FALSE(has(notices.back(), Changed::settings));
    expectOne("generate");
    window.view().edit([](WorkspaceState& state) {
        state.settings.mainShare = 30;
        state.settings.mainMaximum = 2; // below the minimum, which follows
    });
    EXPECT_EQ(window.state().settings.mainMinimum, 2);
    EXPECT_TRUE(window.state().cuts().empty());
    expectOne("two settings and one that follows");
    window.view().stepBack();
    EXPECT_EQ(window.state().settings.mainMinimum, 10);
    EXPECT_FALSE(window.state().cuts().empty());
    expectOne("back, with settings that change");
    window.view().setBound(&EditSettings::otherMinimum, 50);
    EXPECT_EQ(window.state().settings.otherMaximum, 50);
    expectOne("a bound");
    window.view().setBound(&EditSettings::otherMinimum, 50);
    window.view().importXML("no document");
    EXPECT_EQ(notices.size(), 1U) << "only the alert";
    EXPECT_EQ(calls.saves, 0) << "nothing changed";
}

TEST(OneDoor, LetsEditsOfObserversWaitTheirTurn)
{
    TestWindow window;
    window.view().importXML(document());
    std::vector<double> seen, order;
    const int token = window.view().observe([&](const Changes&) {
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
    window.view().stopObserving(token);
    window.set([](auto& edit) { edit.doubleMain = true; });
    EXPECT_EQ(seen.size(), 3U);
    EXPECT_THROW(
        window.view().edit([](WorkspaceState& state) {
            state.settings.mainShare = 90;
            throw PlatformError("no");
        }),
        PlatformError);
    EXPECT_EQ(window.state().settings.mainShare, 30) << "what throws has changed nothing";
}

TEST(OneDoor, ShowsEveryAlertTheEarlierFirst)
{
    TestWindow window;
    const std::string_view garbage = "{";
    replaceFile(window.sessionFile(), {&garbage, 1});
    window.defaults.values["Corvane.savedPresets.v1"] = "[1]";
    window.restart();
    ASSERT_EQ(window.view().alerts().size(), 2U);
    EXPECT_EQ(window.view().alerts().front().find("The previous session could not be restored. "), 0U);
    EXPECT_EQ(window.state().error, "Saved presets could not be read. Their stored data has been kept.");
    window.view().dismissError();
    EXPECT_EQ(window.state().error, std::nullopt);
    EXPECT_EQ(window.view().alerts().front(), "Saved presets could not be read. Their stored data has been kept.");
    window.view().dismissError();
    EXPECT_TRUE(window.view().alerts().empty());
    for (int file = 1; file <= 300; ++file) {
        window.inbox.setImportError("The same.");
        window.inbox.setImportError("File " + std::to_string(file));
    }
    EXPECT_EQ(window.view().alerts().size(), 20U) << "one that comes again is told once, and there is an end";
    EXPECT_EQ(window.view().alerts()[18], "File 18");
    EXPECT_EQ(window.view().alerts().back(), "282 more messages came. The last one: File 300");
    EXPECT_EQ(window.state().error, "File 300");
    EXPECT_EQ(window.defaults.values["Corvane.savedPresets.v1"], "[1]");
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
    window.view().openProjectFile(bundle);
    window.view().generateRoughEdit();
    window.dialogs.answer = window.folder.file("exports");
    window.view().exportRoughEdit();
    EXPECT_EQ(window.dialogs.firstFolder, window.folder.path()) << "beside the bundle, not in it";
    EXPECT_EQ(window.scope.held, 1);
    window.finalCut.reports.front()(std::nullopt);
    EXPECT_EQ(window.scope.held, 0);
    window.importAndGenerate(document());
    window.view().exportRoughEdit();
    EXPECT_EQ(window.dialogs.firstFolder, "") << "this project came without a file";
    window.dialogs.answer = "/proc";
    window.view().exportRoughEdit();
    EXPECT_EQ(window.dialogs.remembered.size(), 2U) << "not one that takes no files";
    window.restart();
    window.finalCut.reports.back()(std::nullopt); // to a window that is gone
    EXPECT_NE(window.state().status.find("Restored"), std::string::npos);
}

TEST(Captions, FollowTheState)
{
    TestWindow window;
    window.view().importXML(document(
        {.angles = angle("A", clip("0s", "40s")) + angle("B", clip("0s", "20s")) + angle("C", clip("0s", "40s"))}));
    window.set([](auto& edit) { edit.frequencies = {{"B", 2}}; });
    EXPECT_EQ(frequencyPercents(window.view()), (std::map<std::string, int>{{"B", 29}, {"C", 71}}))
        << "5 where there is no entry";
    EXPECT_EQ(audioChoices(window.view())[1].label, "B (Camera 1) (has gaps)");
    EXPECT_EQ(shareLabel(window.view()), "Target screen time: Main 70% · Other cameras combined 30%");
    EXPECT_EQ(secondsLabel("Minimum", window.state().settings.mainMinimum), "Minimum: 10 sec");
    window.view().setCameraIncluded("B", ContentView::Inclusion::excluded);
    EXPECT_FALSE(frequenciesMatter(window.view()));
    EXPECT_EQ(
        videoGapsText(window.view()), "Selected cameras cover the whole project, including all fixed camera sections.");
    const auto labelOfB = [&window](const std::function<void(EditSettings&)>& change) {
        window.set(change);
        return coverageLabel(window.view(), "B", camerasInUse(window.view()).contains("B"));
    };
    const std::string inUse = "B (Camera 1)", excluded = inUse + " (excluded)";
    EXPECT_EQ(labelOfB([](auto& edit) { edit.sections = {{{}, "", "B", "0:0:0:0", "0:0:1:0"}}; }), inUse);
    EXPECT_EQ(labelOfB([](auto& edit) { edit.sections.clear(); }), excluded);
    EXPECT_EQ(labelOfB([](auto& edit) { edit.closingCamera = "B"; }), excluded);
    EXPECT_EQ(labelOfB([](auto& edit) { edit.closingEnabled = true; }), inUse);
    EXPECT_EQ(labelOfB([](auto& edit) { edit.closingCamera = "A"; }), excluded);
    EXPECT_EQ(labelOfB([](auto& edit) { edit.openingEnabled = true; }), excluded);
    EXPECT_EQ(labelOfB([](auto& edit) { edit.openingCamera = "B"; }), inUse);
    EXPECT_EQ(labelOfB([](auto& edit) { edit.openingEnabled = false; }), excluded);
    window.view().selectMainCamera("B");
    window.set([](auto& edit) { edit.otherCameras.clear(); });
    EXPECT_EQ(videoGapsText(window.view()), "1 uncovered video section(s)");
    EXPECT_TRUE(asksForAnotherCamera(window.view()));
}

} // namespace
} // namespace corvane
