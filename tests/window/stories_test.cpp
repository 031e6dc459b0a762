#include "gui.h"
#include "intake/opened_files.h"
#include "workspace/shot_facts.h"
#include "workspace/window/drop_view.h"
#include "workspace/window/pictures/cut_strip.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QTableView>
#include <QUrl>
#include <algorithm>
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

TEST(Story, FromADropToAnExport)
{
    Gui gui;
    auto* zone = gui.window().findChild<ProjectDropView*>();
    const std::string file = written(gui, "Concert.fcpxml", document());
    const std::unique_ptr<QMimeData> project(files({file}));
    EXPECT_TRUE(drop(*zone, *project));
    EXPECT_EQ(gui.account.dialogs.projects, std::vector{file}) << "the next chooser begins beside it";
    EXPECT_EQ(gui.withText<>("Export to Final Cut…")->toolTip(), "Generate an edit first.");
    gui.click("Generate rough edit");
    gui.account.finalCut.installed = false;
    gui.account.dialogs.answer = gui.account.folder.file("exports");
    gui.click("Export to Final Cut…");
    EXPECT_EQ(gui.account.dialogs.firstFolder, gui.account.folder.path()) << "beside the source";
    EXPECT_TRUE(gui.shows("XML and settings were saved. Final Cut Pro could not be opened."));
    QMessageBox* box = gui.alert();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->text().startsWith("Your export is saved at "));
    EXPECT_NE(box->icon(), QMessageBox::Warning) << "it is";
    QTest::keyClick(box, Qt::Key_Return);
    gui.entry("Show Last Export")->trigger();
    EXPECT_EQ(gui.revealed, (std::vector<std::string>{gui.account.folder.file("exports/Concert Corvane.fcpxml")}));
}

TEST(Story, ByKeyboardAloneFromImportToExport)
{
    Gui gui;
    gui.key(Qt::Key_O);
    EXPECT_EQ(gui.account.dialogs.asked, 1);
    gui.account.dialogs.answer = written(gui, "Concert.fcpxml", document());
    QTest::keyClick(gui.window().findChild<ProjectDropView*>(), Qt::Key_Space);
    gui.key(Qt::Key_G);
    gui.key(Qt::Key_G);
    gui.key(Qt::Key_BracketLeft);
    EXPECT_EQ(gui.state().history.index, 0);
    gui.key(Qt::Key_BracketRight);
    EXPECT_EQ(gui.state().history.index, 1);
    gui.account.dialogs.answer = gui.account.folder.file("exports");
    gui.key(Qt::Key_E);
    EXPECT_EQ(gui.account.names("exports").size(), 2U);
    gui.key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
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
    openURLs({text}, gui.account.inbox, gui.window().alerts(), [] {});
    EXPECT_EQ(gui.alert(), box) << "the first stays until it is answered";
    QTest::keyClick(box, Qt::Key_Return);
    expectAlert(gui, "A second message.");
    expectAlert(gui, "Open one Final Cut XML project at a time");
    EXPECT_EQ(box->informativeText(), "Select one project in Final Cut and share it to Corvane.")
        << "in the same window";
}

TEST(DropView, LightsUpForWhatItTakes)
{
    Gui gui;
    auto* zone = gui.window().findChild<ProjectDropView*>();
    QMimeData dragged;
    dragged.setData("com.apple.finalcutpro.xml.v1-14", "");
    dragged.setData("com.apple.finalcutpro.xml.v1-13", QByteArray::fromStdString(document()));
    QMimeData text;
    text.setText("a.fcpxml");
    for (const QMimeData* data : {&dragged, &text}) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(zone, &enter);
        EXPECT_EQ(zone->dropActive(), data == &dragged);
        QDragLeaveEvent leave;
        QApplication::sendEvent(zone, &leave);
        EXPECT_FALSE(zone->dropActive() || gui.state().dropTargeted);
    }
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
    mutable QStringList asked;
    QString silentAbout;

    [[nodiscard]] QStringList formats() const override
    {
        return {"com.apple.finalcutpro.xml", "com.apple.finalcutpro.xml.v1-13", "text/uri-list"};
    }
    [[nodiscard]] bool hasFormat(const QString& type) const override { return formats().contains(type); }
    [[nodiscard]] QVariant retrieveData(const QString& type, QMetaType) const override
    {
        asked << type;
        QTest::qSleep(type == silentAbout ? 700 : 0);
        return QByteArray();
    }
};

TEST(DropView, AsksASourceForNothingBeforeTheDropAndForNothingAfterItWasSilent)
{
    const QStringList all = {"com.apple.finalcutpro.xml.v1-13", "com.apple.finalcutpro.xml", "text/uri-list"};
    for (qsizetype answered = 0; answered <= all.size(); ++answered) {
        Gui gui;
        auto* zone = gui.window().findChild<ProjectDropView*>();
        EmptySource source;
        source.silentAbout = all.value(answered);
        for (QWidget* target : {static_cast<QWidget*>(zone), static_cast<QWidget*>(&gui.window())}) {
            QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &source, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(target, &enter);
            QDragMoveEvent move(QPoint(6, 6), Qt::CopyAction, &source, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(target, &move);
            EXPECT_TRUE(enter.isAccepted() && move.isAccepted() && source.asked.empty());
        }
        EXPECT_FALSE(drop(*zone, source));
        EXPECT_TRUE(source.asked == all.first(std::min(answered + 1, all.size())));
        expectAlert(gui, "Drop one project from Final Cut’s browser, or one .fcpxml file or .fcpxmld bundle.");
        EXPECT_FALSE(drop(gui.window(), source));
        expectAlert(gui, "Drop one Final Cut XML file or bundle at a time.");
    }
}

TEST(CutPanel, KeepsTheChosenFrameInStripAndTable)
{
    Gui gui(document());
    gui.account.set([](auto& settings) { // many short shots
        settings.mainMinimum = settings.mainMaximum = settings.otherMinimum = settings.otherMaximum = 1;
    });
    gui.view().generateRoughEdit();
    Gui::settle();
    QTableView* table = gui.table("Cuts");
    auto* strip = gui.window().findChild<CutStrip*>();
    constexpr double gutter = 24;
    constexpr Frames chosen = 512;
    const double x = gutter + (strip->width() - gutter) * (chosen + 0.5) / 1000;
    QTest::mouseClick(strip, Qt::LeftButton, {}, QPoint(qRound(x), strip->height() - 3));
    const auto expectChosen = [&](const char* after) {
        Gui::settle();
        const auto& cuts = gui.state().cuts();
        const auto row = static_cast<int>(cutAt(cuts, chosen));
        EXPECT_EQ(table->model()->rowCount(), static_cast<int>(cuts.size()));
        EXPECT_EQ(table->currentIndex().row(), row) << after;
        EXPECT_TRUE(table->viewport()->rect().contains(table->visualRect(table->model()->index(row, 0)))) << after;
        return table->rowViewportPosition(row);
    };
    const int height = expectChosen("a click");
    EXPECT_GT(height, 0);
    gui.click("Shuffle rough edit");
    EXPECT_EQ(expectChosen("Shuffle"), height) << "the row stays where it was";
    gui.account.set([](auto& settings) { settings.mainMaximum = settings.otherMaximum = 3; });
    EXPECT_EQ(table->model()->rowCount(), 0);
    EXPECT_TRUE(gui.shows("Generate an edit to preview the cuts here."));
    for (const char* button : {"Generate rough edit", "Back", "Forward"}) {
        gui.click(button);
        EXPECT_EQ(expectChosen(button), height) << button;
    }
    const auto select = [table](int row, QItemSelectionModel::SelectionFlags how) {
        table->selectionModel()->setCurrentIndex(table->model()->index(row, 0), how | QItemSelectionModel::Rows);
    };
    select(4, QItemSelectionModel::Select);
    select(6, QItemSelectionModel::NoUpdate); // as after Ctrl has taken it away
    const Frames first = gui.state().cuts()[4].start;
    gui.click("Shuffle rough edit");
    EXPECT_EQ(table->currentIndex().row(), static_cast<int>(cutAt(gui.state().cuts(), first)));
    table->clearSelection();
    gui.click("Shuffle rough edit");
    EXPECT_FALSE(table->currentIndex().isValid()) << "none was chosen";
    gui.account.importAndGenerate(document());
    EXPECT_FALSE(table->currentIndex().isValid()) << "another project";
}

TEST(Help, IsOneWindowThatKeepsTheTopicThatWasClicked)
{
    Gui gui;
    gui.click("?");
    QWidget* sheet = QApplication::activeModalWidget();
    ASSERT_NE(sheet, nullptr);
    auto* query = sheet->findChild<QLineEdit*>();
    QTest::keyClicks(query, "TIMECODE");
    auto* topics = sheet->findChild<QListWidget*>();
    const QString found = topics->currentItem()->text();
    QTest::mouseClick(topics->viewport(), Qt::LeftButton, {}, topics->visualItemRect(topics->currentItem()).center());
    query->clear();
    EXPECT_EQ(topics->currentItem()->text(), found) << "who clicks a topic keeps it when the search ends";
    QTest::mouseClick(gui.withText<>("Close", sheet), Qt::LeftButton);
    EXPECT_FALSE(gui.state().showingHelp);
    gui.activate();
    gui.key(Qt::Key_F1, {});
    gui.key(Qt::Key_F1, {});
    EXPECT_EQ(
        std::ranges::count_if(
            QApplication::topLevelWidgets(),
            [](const QWidget* each) { return each->objectName() == "helpWindow" && each->isVisible(); }),
        1);
}

} // namespace
} // namespace corvane
