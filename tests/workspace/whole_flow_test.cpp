#include "session/saved_session.h"
#include "support/documents.h"
#include "support/test_window.h"
#include "workspace/captions.h"

#include <gtest/gtest.h>

#include <fstream>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

/// A bundle with the document, for dropping.
std::string bundle(const TestWindow& window, const std::string& xml)
{
    const std::string path = window.folder.file("Concert.FCPXMLD");
    std::filesystem::create_directory(path);
    std::ofstream(path + "/Info.fcpxml") << xml;
    return path;
}

TEST(WholeFlow, FromADroppedBundleToARestoredWindow)
{
    TestWindow window;
    ContentView& view = window.view();
    view.windowAppeared();
    EXPECT_EQ(stage(view), WorkspaceStage::empty);
    view.handleDroppedFiles({bundle(window, document())});
    ASSERT_EQ(window.state().error, std::nullopt);
    EXPECT_EQ(primaryButtonText(view), "Generate rough edit");
    for (int n = 0; n < 3; ++n)
        view.generateRoughEdit();
    const SharedRevision first = window.state().history.items[0];
    view.stepBack();
    view.stepBack();
    EXPECT_EQ(window.state().preview, first);
    EXPECT_EQ(positionCaption(view), "Edit 1 of 3");
    view.generateRoughEdit();
    EXPECT_EQ(window.state().history.items.size(), 2U) << "what stood after it is dropped";
    view.edit([](WorkspaceState& state) { state.settings.mainShare = 40; });
    view.exportRoughEdit();
    EXPECT_EQ(window.dialogs.asked, 0) << "an edit of other settings is never exported";
    view.generateRoughEdit();

    window.dialogs.answer = window.folder.file("exports");
    view.exportRoughEdit();
    EXPECT_EQ(
        window.state().status, "Saved Concert Corvane.fcpxml and Concert Corvane.settings.txt. Opening Final Cut Pro…");
    EXPECT_EQ(window.scope.held, 1) << "access to the document until Final Cut has reported";
    window.finalCut.reports.front()(std::nullopt);
    EXPECT_EQ(window.scope.held, 0);
    EXPECT_EQ(window.state().status, "XML and settings saved. Sent the XML to Final Cut Pro for import.");
    window.finalCut.installed = false;
    view.exportRoughEdit();
    EXPECT_EQ(window.state().status, "XML and settings were saved. Final Cut Pro could not be opened.");
    EXPECT_EQ(
        window.state().error, "Your export is saved at " + window.folder.file("exports/Concert Corvane 2.fcpxml") +
                                  ". Open it in Final Cut manually. Final Cut Pro could not be found. Your exported "
                                  "files have been saved.");
    EXPECT_EQ(
        window.names("exports"), (Names{
                                     "Concert Corvane 2.fcpxml", "Concert Corvane 2.settings.txt",
                                     "Concert Corvane.fcpxml", "Concert Corvane.settings.txt"}));
    const WorkspaceState before = window.state();
    window.restart();
    EXPECT_EQ(window.state().settings, before.settings);
    EXPECT_EQ(window.state().cuts(), before.cuts());
    EXPECT_EQ(positionCaption(window.view()), "Edit 3 of 3");
    EXPECT_EQ(*window.state().history.items[0], *first);
    EXPECT_EQ(
        window.state().status, "Restored your last session from its saved XML snapshot. Import a fresh XML if the "
                               "Final Cut project has changed.");
    EXPECT_EQ(window.names("Corvane"), Names{"session-v1.json"});
}

TEST(WholeFlow, ReportsToAWindowThatIsGoneAreDropped)
{
    TestWindow window;
    window.view().importXML(document());
    window.view().generateRoughEdit();
    window.dialogs.answer = window.folder.file("exports");
    window.view().exportRoughEdit();
    window.restart();
    window.finalCut.reports.front()(std::nullopt);
    EXPECT_NE(window.state().status.find("Restored"), std::string::npos);
}

TEST(WholeFlow, KeepsWhatAnImportReplacesAndBringsItBack)
{
    TestWindow window;
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().error, "There is no previous project to reopen.");
    window.view().importXML(document());
    window.view().generateRoughEdit();
    const std::vector<Cut> cuts = window.state().cuts();
    window.view().importXML(replaced(document(), "Concert", "Other"));
    window.view().addSection();
    window.view().reopenPreviousSession();
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().settings.sections.size(), 1U) << "settings are work too";
    window.view().removeSection(0);
    window.view().generateRoughEdit();
    EXPECT_EQ(window.names("Corvane"), (Names{"session-v1 (previous).json", "session-v1.json"}));
    window.view().reopenPreviousSession();
    EXPECT_EQ(window.state().loaded->imported.name, "Concert");
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

TEST(WholeFlow, SaysWhenAReplacedSessionCannotBeKept)
{
    TestWindow window;
    window.view().importXML(document());
    window.view().generateRoughEdit();
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

TEST(WholeFlow, KeepsASessionFileThatIsNotItsOwn)
{
    TestWindow window;
    const auto put = [&](std::string_view bytes) { replaceFile(window.sessionFile(), {&bytes, 1}); };
    put("garbage");
    window.view().windowAppeared();
    EXPECT_EQ(readFile(window.sessionFile()), "garbage");
    window.view().importXML(document());
    window.view().generateRoughEdit();
    put("another process was here");
    window.view().generateRoughEdit();
    window.view().generateRoughEdit();
    EXPECT_EQ(
        window.names("Corvane"), (Names{"session-v1 (kept 2).json", "session-v1 (kept).json", "session-v1.json"}));
    EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept).json")), "garbage");
    EXPECT_EQ(readFile(window.folder.file("Corvane/session-v1 (kept 2).json")), "another process was here");
}

TEST(WholeFlow, ReadsASessionWrittenByHand)
{
    TestWindow window;
    window.view().importXML(document());
    window.view().generateRoughEdit();
    const std::string good = readFile(window.sessionFile());
    // Another order of keys, other forms of numbers, identifiers and characters, and unknown keys.
    std::string byHand = replaced(good, "{\"version\":1,", "{\"more\":[null],\"version\":1.0,");
    byHand = replaced(byHand, "\"mainShare\":70.0", "\"mainShare\":7e1");
    byHand = replaced(byHand, "\"id\":\"", "\"id\":\"abcdef00-0000-4000-8000-00000000000a\",\"was\":\"");
    byHand = replaced(byHand, "\"mainCamera\":\"A\"", "\"mainCamera\":\"\\u0041\"");
    const std::string_view bytes = byHand;
    replaceFile(window.sessionFile(), {&bytes, 1});
    window.restart();
    EXPECT_EQ(window.state().error, std::nullopt);
    EXPECT_EQ(window.state().history.items.front()->id.text(), "ABCDEF00-0000-4000-8000-00000000000A");
}

} // namespace
} // namespace corvane
