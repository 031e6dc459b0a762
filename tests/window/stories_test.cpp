#include "gui.h"
#include "intake/final_cut/share_receiver.h"
#include "workspace/shot_facts.h"
#include "workspace/window/drop_view.h"
#include "workspace/window/help_window.h"
#include "workspace/window/pictures/cut_strip.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QSplitter>
#include <QTableView>
#include <QTextBrowser>
#include <QUrl>
#include <fstream>

namespace corvane {
namespace {

using namespace test;

/// Carries the data over the widget and lets go; says whether it was taken.
bool drop(QWidget& target, const QMimeData& data)
{
    const QPoint place = target.rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    QDropEvent let(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    let.ignore();
    QApplication::sendEvent(&target, &let);
    Gui::settle();
    return let.isAccepted();
}

QMimeData* files(const std::vector<std::string>& paths)
{
    auto* data = new QMimeData;
    QList<QUrl> urls;
    for (const std::string& path : paths)
        urls << QUrl::fromLocalFile(qt(path));
    data->setUrls(urls);
    return data;
}

std::string written(Gui& gui, const std::string& name, const std::string& text)
{
    const std::string path = gui.account.folder.file(name);
    std::ofstream(path) << text;
    return path;
}

void expectAlert(Gui& gui, const std::string& message)
{
    QMessageBox* box = gui.alert();
    ASSERT_NE(box, nullptr) << message;
    EXPECT_EQ(box->windowTitle(), "Corvane");
    EXPECT_EQ(utf8(box->text()), message);
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    EXPECT_TRUE(box->textInteractionFlags() & Qt::TextSelectableByMouse);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(gui.state().error, std::nullopt);
}

TEST(Story, FromADropToAnExportAndARestart)
{
    Gui gui;
    auto* zone = gui.window().findChild<ProjectDropView*>();
    QTest::mouseClick(zone, Qt::LeftButton);
    EXPECT_EQ(gui.account.dialogs.asked, 1);
    const std::string file = written(gui, "Concert.fcpxml", document());
    const std::unique_ptr<QMimeData> project(files({file}));
    EXPECT_TRUE(drop(*zone, *project));
    ASSERT_NE(gui.state().loaded, nullptr);
    EXPECT_EQ(gui.account.dialogs.projects, std::vector{file}) << "the next chooser begins beside it";
    EXPECT_FALSE(gui.withText<>("Export to Final Cut…")->isEnabled());
    EXPECT_EQ(gui.withText<>("Export to Final Cut…")->toolTip(), "Generate an edit first.");
    gui.click("Generate rough edit");
    gui.click("Shuffle rough edit");
    EXPECT_NE(gui.withText<QLabel>("Edit 2 of 2"), nullptr);
    EXPECT_EQ(gui.withText<>("Back")->toolTip(), "Return to the previous rough edit and its settings");
    gui.click("Back");
    EXPECT_NE(gui.withText<QLabel>("Edit 1 of 2"), nullptr);
    EXPECT_EQ(gui.withText<>("Shuffle rough edit")->toolTip(), "Replaces edit 2");
    EXPECT_EQ(gui.withText<>("Forward")->toolTip(), "Restore the next rough edit and its settings");
    gui.click("Forward");
    gui.account.finalCut.installed = false;
    gui.account.dialogs.answer = gui.account.folder.file("exports");
    gui.click("Export to Final Cut…");
    EXPECT_EQ(
        gui.account.dialogs.firstFolder,
        gui.account.folder.file(".").substr(0, gui.account.folder.file(".").size() - 2))
        << "the first export is proposed beside the source";
    EXPECT_EQ(
        gui.account.names("exports"),
        (std::vector<std::string>{"Concert Corvane.fcpxml", "Concert Corvane.settings.txt"}));
    EXPECT_NE(gui.withText<QLabel>("XML and settings were saved. Final Cut Pro could not be opened."), nullptr);
    QMessageBox* box = gui.alert();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->text().startsWith("Your export is saved at "));
    EXPECT_NE(box->icon(), QMessageBox::Warning) << "it is";
    QTest::keyClick(box, Qt::Key_Return);
    for (QAction* action : gui.window().findChildren<QAction*>()) {
        if (readText(action->text()) == "Show Last Export")
            action->trigger();
    }
    EXPECT_EQ(gui.revealed, (std::vector<std::string>{gui.account.folder.file("exports/Concert Corvane.fcpxml")}));
}

TEST(Story, ByKeyboardAloneFromImportToExport)
{
    Gui gui;
    QTest::keyClick(&gui.window(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(gui.account.dialogs.asked, 1);
    gui.account.dialogs.answer = written(gui, "Concert.fcpxml", document());
    QTest::keyClick(gui.window().findChild<ProjectDropView*>(), Qt::Key_Space);
    ASSERT_NE(gui.state().loaded, nullptr);
    QTest::keyClick(&gui.window(), Qt::Key_G, Qt::ControlModifier);
    QTest::keyClick(&gui.window(), Qt::Key_G, Qt::ControlModifier);
    QTest::keyClick(&gui.window(), Qt::Key_BracketLeft, Qt::ControlModifier);
    EXPECT_EQ(gui.state().history.index, 0);
    QTest::keyClick(&gui.window(), Qt::Key_BracketRight, Qt::ControlModifier);
    EXPECT_EQ(gui.state().history.index, 1);
    gui.account.dialogs.answer = gui.account.folder.file("exports");
    QTest::keyClick(&gui.window(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(gui.account.names("exports").size(), 2U);
    QTest::keyClick(&gui.window(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(utf8(QGuiApplication::clipboard()->text()), cutListText(gui.view()));
}

TEST(Story, RefusalsAreAlertsOneAfterTheOther)
{
    Gui gui;
    auto* zone = gui.window().findChild<ProjectDropView*>();
    const std::string text = written(gui, "notes.txt", "no project");
    const std::unique_ptr<QMimeData> note(files({text}));
    EXPECT_FALSE(drop(*zone, *note));
    expectAlert(gui, "Drop one project from Final Cut’s browser, or one .fcpxml file or .fcpxmld bundle.");
    EXPECT_FALSE(drop(gui.window(), *note));
    expectAlert(gui, "Choose a .fcpxml file or .fcpxmld bundle.");
    const std::unique_ptr<QMimeData> two(files({text, text}));
    QMimeData link;
    link.setUrls({QUrl("mailto:a.fcpxml")});
    for (const QMimeData* data : {two.get(), &link}) {
        EXPECT_FALSE(drop(gui.window(), *data));
        expectAlert(gui, "Drop one Final Cut XML file or bundle at a time.");
    }

    gui.view().importXML("<fcpxml/>");
    gui.account.inbox.setXMLData(document()); // arrives behind the alert
    QMessageBox* box = gui.alert();
    ASSERT_NE(box, nullptr);
    EXPECT_NE(gui.state().loaded, nullptr);
    gui.account.inbox.setImportError("A second message.");
    EXPECT_EQ(gui.alert(), box) << "the first stays until it is answered";
    for (int handOver = 0; handOver < 300; ++handOver)
        openURLs({text}, gui.account.inbox, gui.window().alerts(), [] {});
    QTest::keyClick(box, Qt::Key_Return);
    expectAlert(gui, "A second message.");
    expectAlert(gui, "Open one Final Cut XML project at a time");
    EXPECT_EQ(box->informativeText(), "Select one project in Final Cut and share it to Corvane.")
        << "in the same window";
    EXPECT_EQ(gui.alert(), nullptr) << "300 times the same";

    const std::string huge = "First. " + std::string(9'000'000, 'x') + "\nLast.";
    gui.account.inbox.setImportError(huge);
    EXPECT_EQ(
        gui.alert()->text().remove(u'\u200B'), "First. " + QString(292, 'x') + "…" + QString(294, 'x') + "↵Last.");
    EXPECT_EQ(gui.state().error, huge);
}

TEST(DropView, LightsUpForWhatItTakes)
{
    Gui gui;
    auto* zone = gui.window().findChild<ProjectDropView*>();
    QMimeData dragged;
    dragged.setData("com.apple.finalcutpro.xml.v1-14", "");
    dragged.setData("com.apple.finalcutpro.xml.v1-13", QByteArray::fromStdString(document()));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(zone, &enter);
    EXPECT_TRUE(enter.isAccepted());
    EXPECT_TRUE(zone->dropActive());
    QDragLeaveEvent leave;
    QApplication::sendEvent(zone, &leave);
    EXPECT_FALSE(zone->dropActive());
    QMimeData text;
    text.setText("a.fcpxml");
    QDragEnterEvent other(QPoint(5, 5), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(zone, &other);
    EXPECT_FALSE(zone->dropActive() || gui.state().dropTargeted);
    EXPECT_TRUE(drop(*zone, dragged));
    EXPECT_NE(gui.state().loaded, nullptr) << "the newest version that has data";
    EXPECT_FALSE(gui.state().dropTargeted);
    gui.view().addSection();
    Gui::settle();
    for (const QWidget* each : gui.window().findChildren<QWidget*>())
        EXPECT_TRUE(!each->acceptDrops() || !each->isVisible() || each == zone)
            << each->metaObject()->className() << " keeps files";
}

/// Offers a project and a file and gives nothing; the toolkit waits a while for what it is silent about.
struct EmptySource : QMimeData {
    mutable std::vector<std::string> asked;
    QStringList offered = {"com.apple.finalcutpro.xml", "com.apple.finalcutpro.xml.v1-13", "text/uri-list"};
    std::string silentAbout;

    [[nodiscard]] QStringList formats() const override { return offered; }
    [[nodiscard]] bool hasFormat(const QString& type) const override { return offered.contains(type); }
    [[nodiscard]] QVariant retrieveData(const QString& type, QMetaType) const override
    {
        asked.push_back(utf8(type));
        QTest::qSleep(asked.back() == silentAbout ? 700 : 0);
        return QByteArray();
    }
};

TEST(DropView, AsksASourceForNothingBeforeTheDropAndForNothingAfterItWasSilent)
{
    using Asked = std::vector<std::string>;
    const Asked all = {"com.apple.finalcutpro.xml.v1-13", "com.apple.finalcutpro.xml", "text/uri-list"};
    for (std::size_t answered = 0; answered <= all.size(); ++answered) {
        Gui gui;
        auto* zone = gui.window().findChild<ProjectDropView*>();
        EmptySource source;
        source.silentAbout = answered < all.size() ? all[answered] : "";
        for (QWidget* target : {static_cast<QWidget*>(zone), static_cast<QWidget*>(&gui.window())}) {
            QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &source, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(target, &enter);
            QDragMoveEvent move(QPoint(6, 6), Qt::CopyAction, &source, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(target, &move);
            EXPECT_TRUE(enter.isAccepted() && move.isAccepted() && source.asked.empty());
        }
        EXPECT_FALSE(drop(*zone, source));
        const auto last = static_cast<std::ptrdiff_t>(std::min(answered + 1, all.size()));
        EXPECT_EQ(source.asked, Asked(all.begin(), all.begin() + last));
        expectAlert(gui, "Drop one project from Final Cut’s browser, or one .fcpxml file or .fcpxmld bundle.");
        source.asked.clear();
        EXPECT_FALSE(drop(gui.window(), source));
        EXPECT_EQ(source.asked, Asked{"text/uri-list"});
        expectAlert(gui, "Drop one Final Cut XML file or bundle at a time.");
    }
}

QTableView* cutTable(Gui& gui)
{
    for (QTableView* each : gui.window().findChildren<QTableView*>()) {
        if (each->accessibleName() == "Cuts")
            return each;
    }
    return nullptr;
}

/// Chooses a frame in the strip, or a row, and goes through other edits and back.
void expectTheFrameStaysChosen(Gui& gui, QTableView& table, CutStrip& strip)
{
    gui.view().edit([](WorkspaceState& state) { // many short shots
        EditSettings& settings = state.settings;
        settings.mainMinimum = settings.mainMaximum = settings.otherMinimum = settings.otherMaximum = 1;
    });
    gui.view().generateRoughEdit();
    Gui::settle();
    constexpr double gutter = 24;
    constexpr Frames chosen = 812;
    const double x = gutter + (strip.width() - gutter) * (chosen + 0.5) / 1000;
    QTest::mouseClick(&strip, Qt::LeftButton, {}, QPoint(qRound(x), strip.height() - 3));
    const auto expectChosen = [&](const char* after) {
        Gui::settle();
        const auto& cuts = gui.state().cuts();
        const auto row = static_cast<int>(cutAt(cuts, chosen));
        EXPECT_EQ(table.currentIndex().row(), row) << after;
        EXPECT_TRUE(table.viewport()->rect().contains(table.visualRect(table.model()->index(row, 0)))) << after;
    };
    expectChosen("a click");
    gui.click("Shuffle rough edit");
    expectChosen("Shuffle");
    gui.view().edit([](WorkspaceState& state) {
        state.settings.mainMaximum = state.settings.otherMaximum = 3; // the list is empty meanwhile
    });
    gui.click("Generate rough edit");
    expectChosen("Generate");
    gui.click("Back");
    expectChosen("Back");
    gui.click("Forward");
    expectChosen("Forward");
    gui.view().importXML(document());
    gui.view().generateRoughEdit();
    EXPECT_FALSE(table.currentIndex().isValid()) << "another project";
}

TEST(CutPanel, TheStripAndTheTableShowEachOther)
{
    Gui gui(document());
    gui.view().generateRoughEdit();
    Gui::settle();
    QTableView* table = cutTable(gui);
    ASSERT_NE(table, nullptr);
    const auto& cuts = gui.state().cuts();
    ASSERT_EQ(table->model()->rowCount(), static_cast<int>(cuts.size()));
    auto* strip = gui.window().findChild<CutStrip*>();
    QTest::mouseClick(strip, Qt::LeftButton, {}, QPoint(strip->width() - 2, strip->height() - 3));
    EXPECT_EQ(table->currentIndex().row(), static_cast<int>(cuts.size()) - 1);
    expectTheFrameStaysChosen(gui, *table, *strip);
    EXPECT_EQ(table->model()->index(0, 0).data().toString(), "00:00:00:00");
    gui.view().edit([](WorkspaceState& state) { state.settings.mainShare = 20; });
    Gui::settle();
    EXPECT_EQ(table->model()->rowCount(), 0);
    EXPECT_NE(gui.withText<QLabel>("Generate an edit to preview the cuts here."), nullptr);
}

TEST(CutPanel, GoesToTheNextShotBelowItsMinimum)
{
    Gui gui(document());
    gui.view().generateRoughEdit();
    const auto show = [&gui](const std::vector<Cut>& cuts) {
        gui.view().edit([&cuts](WorkspaceState& state) {
            EditRevision changed = *state.preview;
            changed.cuts = cuts;
            state.preview = std::make_shared<const EditRevision>(changed);
        });
        Gui::settle();
    };
    show({{{}, "A", 0, 400}, {{}, "B", 400, 50}, {{}, "A", 450, 400}, {{}, "B", 850, 100}, {{}, "A", 950, 50}});
    const QTableView* table = cutTable(gui);
    ASSERT_NE(table, nullptr);
    auto* next = gui.withText<>("2 shots are shorter than your minimum");
    ASSERT_NE(next, nullptr);
    gui.click("2 shots are shorter than your minimum");
    EXPECT_EQ(table->currentIndex().row(), 1);
    QTest::keyClick(next, Qt::Key_Space);
    EXPECT_EQ(table->currentIndex().row(), 4);
    QTest::keyClick(&gui.window(), Qt::Key_Y, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([table] { return table->currentIndex().row() == 1; })) << "after the last the first";
    const auto told = [table](int row, int role) { return table->model()->index(row, 2).data(role); };
    EXPECT_TRUE(told(1, Qt::ForegroundRole).isValid() && !told(0, Qt::ForegroundRole).isValid());
    EXPECT_EQ(told(4, Qt::AccessibleDescriptionRole).toString(), "Shorter than your minimum.");
    EXPECT_TRUE(told(4, Qt::ToolTipRole).toString().endsWith("Shorter than your minimum."));
    auto* strip = gui.window().findChild<CutStrip*>();
    EXPECT_TRUE(strip->accessibleDescription().endsWith("2 shots are shorter than your minimum."));
    show({{{}, "A", 0, 1000}});
    EXPECT_FALSE(next->isVisible());
}

TEST(Help, IsOneSheetAndOneWindowAndSearches)
{
    Gui gui;
    gui.click("?");
    QWidget* sheet = QApplication::activeModalWidget();
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->windowTitle(), "Corvane Help");
    auto* query = sheet->findChild<QLineEdit*>();
    QTest::keyClicks(query, "no such word");
    EXPECT_NE(gui.withText<QLabel>("No matching topics", sheet), nullptr);
    EXPECT_NE(gui.withText<QLabel>("0 matching topics", sheet), nullptr);
    QTest::mouseClick(gui.withText<>("Show all topics", sheet), Qt::LeftButton);
    EXPECT_TRUE(query->text().isEmpty());
    QTest::keyClicks(query, "TIMECODE");
    EXPECT_FALSE(sheet->findChild<QTextBrowser*>()->toPlainText().isEmpty());
    auto* topics = sheet->findChild<QListWidget*>();
    const QString found = topics->currentItem()->text();
    const QRect row = topics->visualItemRect(topics->currentItem());
    QTest::mouseClick(topics->viewport(), Qt::LeftButton, {}, row.center());
    query->clear();
    EXPECT_EQ(topics->currentItem()->text(), found) << "who clicks a topic keeps it when the search ends";
    const auto widthOfTopics = [](QWidget& help) { return help.findChild<QSplitter*>()->sizes().front(); };
    const int usual = widthOfTopics(*sheet);
    sheet->findChild<QSplitter*>()->setSizes({usual + 90, 300});
    QTest::mouseClick(gui.withText<>("Close", sheet), Qt::LeftButton);
    EXPECT_FALSE(gui.state().showingHelp);
    const auto helpWindows = [] {
        return std::ranges::count_if(QApplication::topLevelWidgets(), [](const QWidget* widget) {
            return widget->objectName() == "helpWindow" && widget->isVisible();
        });
    };
    gui.window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&gui.window()));
    QTest::keyClick(&gui.window(), Qt::Key_F1);
    QTest::keyClick(&gui.window(), Qt::Key_F1);
    EXPECT_EQ(helpWindows(), 1);
    for (QWidget* widget : QApplication::topLevelWidgets())
        EXPECT_TRUE(widget->objectName() != "helpWindow" || widthOfTopics(*widget) > usual + 60) << "remembered";
}

TEST(Help, SaysThatAManualIsMissing)
{
    Gui gui;
    const ResourceFolders nowhere({"/nowhere"});
    CorvaneHelpView help(loadedManual(nowhere), gui.account.defaults, [] {});
    help.show();
    EXPECT_NE(gui.withText<QLabel>("Help could not be opened", &help), nullptr);
    EXPECT_NE(
        gui.withText<QLabel>(
            "The included manual could not be found. Reinstall Corvane to restore the help files.", &help),
        nullptr);
}

TEST(About, LeadsToTheManualAndCloses)
{
    Gui gui;
    gui.click("About");
    QWidget* sheet = QApplication::activeModalWidget();
    ASSERT_NE(sheet, nullptr);
    EXPECT_NE(gui.withText<QLabel>("Version 0.1 (Beta) (Build 1)", sheet), nullptr);
    QTest::mouseClick(gui.withText<>("Open manual", sheet), Qt::LeftButton);
    EXPECT_FALSE(gui.state().showingAbout);
    EXPECT_TRUE(gui.state().showingHelp);
}

} // namespace
} // namespace corvane
