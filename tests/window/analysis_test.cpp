#include "gui.h"
#include "workspace/check_facts.h"
#include "workspace/window/controls/into_view.h"
#include "workspace/window/panels/coverage_panel.h"
#include "workspace/window/pictures/coverage_bar.h"
#include "workspace/window/pictures/cut_strip.h"
#include "workspace/window/pictures/time_axis.h"
#include "workspace/window/trial_sheet.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QScrollBar>
#include <QTableView>
#include <fstream>
#include <sstream>

namespace corvane {
namespace {

using namespace test;

/// Sound from 5 s on or of the camera, a keyword between two frames, a fade, a marker.
std::string troubled()
{
    Parts parts;
    parts.angles = angle("A&amp;B", clip("0s", "40s")) + angle("C", clip("0s", "40s", "v")) +
                   angle("Late", clip("5s", "35s", "a"));
    parts.inClip = R"(<mc-source angleID="Late" srcEnable="audio"/>
<mc-source angleID="A&amp;B" srcEnable="video"><adjust-volume><param><fadeIn duration="12s"/></param></adjust-volume></mc-source>
<keyword start="251/50s" duration="1s" value="&lt;b&gt;"/><marker start="20s" value="Sermon"/>)";
    return document(parts);
}

QString said(QWidget& window)
{
    QString all;
    for (const QLabel* label : window.findChildren<QLabel*>())
        all += label->isVisibleTo(&window) ? label->text() + "\n" : QString();
    return all;
}

TEST(RecordingCoverage, SaysWhatCanBeCutAndWhatAnExportWillRefuse)
{
    Gui gui(troubled());
    auto* panel = gui.window().findChild<CoveragePanel*>();
    EXPECT_TRUE(
        said(*panel).contains("Usable: 1 range, 88 % of the project; 00:00:05:00 to 00:00:40:00. With the audio "
                              "of A&B (Camera 1): 100 %."));
    EXPECT_TRUE(said(*panel).contains("Keyword '<b>' at 00:00:05:00 is not on a frame boundary"));
    EXPECT_EQ(gui.labelled<QWidget>("Usable")->accessibleDescription(), "Usable: 00:00:05:00 to 00:00:40:00.");
    EXPECT_EQ(
        gui.labelled<CoverageBar>("AB (Camera 1)")->accessibleDescription(), "Footage: 00:00:00:00 to 00:00:40:00.");
    const QString markers = "Markers: Sermon at 00:00:20:00.";
    EXPECT_EQ(gui.window().findChild<TimeAxis*>()->accessibleDescription(), markers);
    const auto* warning =
        gui.withText<QLabel>("Selected audio has a gap at 00:00:00:00. Choose a continuous audio angle.");
    EXPECT_EQ(scrollAreaOf(*warning)->verticalScrollBar()->maximum(), 0) << "it is read without scrolling";
    const QPoint before = gui.withText<>("Check project…")->mapTo(&gui.window(), QPoint());
    gui.view().edit([](WorkspaceState& state) { state.settings.audio = "A&B"; });
    Gui::settle();
    EXPECT_FALSE(said(*panel).contains("Usable: 1"));
    EXPECT_TRUE(said(*panel).contains("A fade of 12 s on A&B (Camera 1) needs an opening of at least 12 s."));
    EXPECT_EQ(gui.withText<>("Check project…")->mapTo(&gui.window(), QPoint()), before) << "the window holds still";
    EXPECT_EQ(gui.state().status + gui.state().error.value_or(""), "") << "nothing of it is a message";
    gui.key(Qt::Key_K);
    QTest::mouseClick(gui.withText<>("Copy", QApplication::activeModalWidget()), Qt::LeftButton);
    EXPECT_EQ(utf8(QGuiApplication::clipboard()->text()), projectCheckText(gui.view()));
    gui.account.set([](auto& settings) { settings.openingEnabled = true; });
    gui.view().generateRoughEdit();
    Gui::settle();
    EXPECT_TRUE(gui.window().findChild<CutStrip*>()->accessibleDescription().endsWith(markers));
}

TEST(TryRules, ShowsSharesInASheetUntilASettingChangesAndKeepsNothing)
{
    Gui gui(threeCameras);
    const auto history = gui.state().history.items.size();
    gui.key(Qt::Key_T);
    auto* sheet = gui.window().findChild<TrialSheet*>();
    ASSERT_TRUE(sheet != nullptr && sheet->isVisible());
    QTableView* table = gui.table("Share in the tries");
    EXPECT_EQ(sheet->focusWidget(), table);
    ASSERT_EQ(table->model()->rowCount(), 3);
    EXPECT_EQ(table->model()->index(0, 1).data().toString(), "70.0%");
    EXPECT_TRUE(said(*sheet).contains(" tries: "));
    EXPECT_EQ(gui.state().history.items.size(), history);
    gui.view().setBound(&EditSettings::mainMinimum, 3);
    EXPECT_EQ(table->model()->rowCount(), 0);
    EXPECT_TRUE(said(*sheet).contains("The settings have changed."));
    auto* again = gui.withText<>("Try these rules", sheet);
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(table->model()->rowCount(), 3);
    gui.view().edit([](WorkspaceState& state) { state.settings.otherCameras.clear(); });
    EXPECT_TRUE(said(*sheet).contains("Include another camera."));
    EXPECT_FALSE(again->isEnabled());
    gui.view().importXML(manyCameras());
    QTest::keyClick(sheet, Qt::Key_T, Qt::ControlModifier);
    Gui::settle();
    ASSERT_EQ(table->model()->rowCount(), 16);
    const QRect last = table->visualRect(table->model()->index(15, 3));
    EXPECT_LE(last.bottom(), table->viewport()->height()) << "all at once";
    QTest::keyClick(table, Qt::Key_Escape);
    EXPECT_FALSE(sheet->isVisible());
    QTest::keyClick(table, Qt::Key_F1);
    EXPECT_EQ(Gui::helpTopic(), "Camera balance and pacing");
}

TEST(PictureOfTheEdit, IsSavedAsANewFileAndNeverOverOne)
{
    Gui gui(replaced(threeCameras, "name=\"A\"", "name=\"&lt;script&gt;\""));
    gui.account.set([](auto& settings) { settings.sections = {{{}, "", "B", "00:00:10:00", "00:00:10:05"}}; });
    gui.click("Generate rough edit");
    gui.account.dialogs.answer = gui.account.folder.file("picture");
    gui.view().savePicture();
    EXPECT_EQ(gui.account.dialogs.suggestedName, "Concert Corvane.html");
    EXPECT_EQ(gui.state().status, "Saved picture.html in " + gui.account.folder.path() + ".");
    std::ifstream file(gui.account.folder.file("picture.html"));
    const std::string page((std::istreambuf_iterator<char>(file)), {});
    EXPECT_NE(page.find("&lt;script&gt;"), std::string::npos);
    EXPECT_NE(page.find(R"(<rect x="250" y="17" width="5" height="3" fill="#161616"/>)"), std::string::npos);
    for (const char* never : {"stroke-width", "<script", "http://", "https://", "src=", "@import", "url("})
        EXPECT_EQ(page.find(never), std::string::npos) << never;
    gui.view().savePicture();
    EXPECT_TRUE(gui.state().error.value_or("").starts_with("There is already a file named picture.html"));
    EXPECT_EQ(gui.account.dialogs.saved, std::vector<std::string>{gui.account.folder.file("picture.html")});
    if (QMessageBox* box = gui.alert())
        QTest::keyClick(box, Qt::Key_Return);
}

} // namespace
} // namespace corvane
