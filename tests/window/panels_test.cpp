#include "gui.h"
#include "workspace/window/controls/picker.h"
#include "workspace/window/controls/reserved_rows.h"
#include "workspace/window/controls/step_box.h"
#include "workspace/window/controls/step_slider.h"
#include "workspace/window/pictures/time_axis.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>

namespace corvane {
namespace {

using namespace test;

void choose(Picker& picker, const QString& entry)
{
    picker.setFocus();
    const int position = picker.findText(entry);
    ASSERT_GE(position, 0) << utf8(entry);
    while (picker.currentIndex() != position)
        QTest::keyClick(&picker, picker.currentIndex() < position ? Qt::Key_Down : Qt::Key_Up);
}

void enter(StepBox& box, const QString& number)
{
    type(box, number);
    QTest::keyClick(&box, Qt::Key_Return);
}

TEST(Panels, EveryControlWritesItsOwnSetting)
{
    Gui gui(threeCameras);
    EditSettings expected = gui.settings();
    choose(*gui.labelled<Picker>("Main camera"), "B (Camera 1)");
    expected.mainCamera = "B";
    expected.otherCameras = {"C"};
    choose(*gui.labelled<Picker>("Continuous audio"), "C (Camera 1) (has gaps)");
    expected.audio = "C";
    enter(*gui.labelled<StepBox>("Wait before returning to main camera: 0 sec"), "34");
    enter(*gui.labelled<StepBox>("Wait before returning to this camera: 0 sec", 1), "120");
    expected.returnTimes["B"] = 30;
    expected.returnTimes["C"] = 120;
    QTest::keyClick(gui.labelled<StepSlider>("Frequency for C (Camera 1)"), Qt::Key_End);
    expected.frequencies["C"] = 10;
    EXPECT_TRUE(gui.shows("67% of additional camera choices"));
    gui.click("A (Camera 1)");
    EXPECT_TRUE(gui.shows("A (Camera 1) (excluded)"));
    EXPECT_TRUE(gui.shows("Frequency needs at least 3 included cameras: the main camera and 2 others. With 2 cameras, "
                          "use the main camera balance."));
    enter(*gui.labelled<StepBox>("Minimum: 10 sec"), "30");
    enter(*gui.labelled<StepBox>("Maximum: 30 sec"), "5");
    expected.mainMinimum = expected.mainMaximum = 5;
    enter(*gui.labelled<StepBox>("Maximum: 8 sec"), "3");
    expected.otherMinimum = expected.otherMaximum = 3;
    QTest::keyClick(
        gui.labelled<StepSlider>("Target screen time: Main 70% · Other cameras combined 30%"), Qt::Key_Right);
    expected.mainShare = 75;
    gui.click("Randomly double main camera holds");
    gui.click("Opening");
    EXPECT_FALSE(gui.labelled<Picker>("Camera", 1)->isEnabled());
    choose(*gui.labelled<Picker>("Camera", 0), "A (Camera 1)");
    enter(*gui.labelled<StepBox>("15 sec", 0), "4");
    gui.click("Closing");
    choose(*gui.labelled<Picker>("Camera", 1), "C (Camera 1)");
    enter(*gui.labelled<StepBox>("15 sec", 0), "6");
    expected.doubleMain = expected.openingEnabled = expected.closingEnabled = true;
    expected.openingCamera = "A";
    expected.closingCamera = "C";
    expected.openingSeconds = 4;
    expected.closingSeconds = 6;
    EXPECT_EQ(gui.settings(), expected);
    const std::pair<bool, std::function<void(EditSettings&)>> changes[] = {
        {false, [](auto& edit) { edit.openingEnabled = false; }},
        {true, [](auto& edit) { edit.sections = {{{}, "", "A", "0:0:0:0", "0:0:1:0"}}; }},
        {false, [](auto& edit) { edit.sections.clear(); }},
        {true, [](auto& edit) { edit.closingCamera = "A"; }}};
    for (const auto& each : changes) {
        gui.account.set(each.second);
        EXPECT_EQ(!gui.shows("A (Camera 1) (excluded)"), each.first) << &each - changes << ": in use";
    }
    EXPECT_FALSE(gui.labelled<StepBox>("4 sec")->isEnabled());
}

TEST(PacingPanel, TakesWhatIsHalfTypedForThisProjectBeforeTheWindowCloses)
{
    Gui gui(threeCameras);
    auto* box = gui.labelled<StepBox>("Minimum: 10 sec");
    type(*box, "88");
    gui.account.inbox.setXMLData(threeCameras);
    box->clearFocus();
    EXPECT_EQ(gui.settings().mainMinimum, 10) << "it was typed for another project";
    type(*box, "604");
    gui.window().close();
    EXPECT_EQ(gui.settings().mainMinimum, 120);
}

TEST(SectionsPanel, AddsChangesRemovesAndBringsBack)
{
    Gui gui(threeCameras);
    gui.click("Add section");
    auto* name = qobject_cast<QLineEdit*>(gui.window().focusWidget());
    QTest::keyClicks(name, "Prayer");
    auto* end = gui.labelled<QLineEdit>("End");
    type(*end, "00:00:10:9");
    EXPECT_FALSE(end->property("bad").toBool()) << "not before it is complete";
    QTest::keyClicks(end, "9");
    EXPECT_EQ(gui.settings().sections.at(0).end, "00:00:10:99");
    EXPECT_TRUE(end->property("bad").toBool());
    EXPECT_TRUE(gui.shows(end->toolTip())) << "the reader's own sentence";
    type(*end, "00:00:10:00");
    EXPECT_FALSE(end->property("bad").toBool());
    auto* start = gui.labelled<QLineEdit>("Start");
    const std::string first = utf8(start->text());
    start->setFocus();
    start->setText("00:00:1");
    EXPECT_FALSE(start->property("bad").toBool() || end->property("bad").toBool());
    QTest::keyClick(start, Qt::Key_Tab);
    EXPECT_TRUE(start->property("bad").toBool()) << "the field was left";
    start->setText("00:00:10:00");
    EXPECT_EQ(start->toolTip(), "The end must be after the start.");
    EXPECT_EQ(end->toolTip(), start->toolTip());
    start->setText(qt(first));
    EXPECT_FALSE(start->property("bad").toBool() || end->property("bad").toBool());
    choose(*gui.labelled<Picker>("Camera", 2), "B (Camera 1)");
    gui.click("Add section");
    const auto both = gui.settings().sections;
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[0].name, "Prayer");
    EXPECT_EQ(both[0].camera, "B");
    EXPECT_EQ(both[1].start, "00:00:10:00");
    gui.click("Remove");
    EXPECT_EQ(gui.settings().sections, (std::vector<SectionDraft>{both[1]}));
    gui.key(Qt::Key_Z);
    EXPECT_EQ(gui.settings().sections, both);
    // The second press of a double click comes to the next row's button, which is by then in the same place.
    gui.window().resize(1200, 3000); // nothing scrolls
    Gui::settle();
    auto* rows = qobject_cast<ReservedRows*>(gui.withText<>("Remove")->parentWidget()->parentWidget());
    const QPoint place = gui.withText<>("Remove", rows->row(0))->mapTo(&gui.window(), QPoint(8, 8));
    for (const auto type :
         {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
          QEvent::MouseButtonRelease}) {
        QWidget* under = gui.window().childAt(place);
        ASSERT_EQ(readText(qobject_cast<QAbstractButton*>(under)->text()), "Remove");
        QMouseEvent event(
            type, under->mapFrom(&gui.window(), place), gui.window().mapToGlobal(place), Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        QCoreApplication::sendEvent(under, &event);
        Gui::settle();
    }
    EXPECT_EQ(gui.settings().sections, (std::vector<SectionDraft>{both[1]}));
    QTest::keyClick(gui.window().focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(gui.settings().sections.empty()) << "the focus is on the next button";
}

TEST(SectionsPanel, BringsANewSectionIntoViewAndAnotherProjectToItsTop)
{
    Gui gui(threeCameras);
    gui.window().resize(960, 700);
    auto* area = gui.window().findChild<QScrollArea*>();
    for (int section = 0; section < 3; ++section) {
        gui.account.set([](auto& settings) { // leaves room for the next
            if (!settings.sections.empty())
                settings.sections.back().end = "00:00:0" + std::to_string(settings.sections.size()) + ":00";
        });
        gui.withText<>("Add section")->click();
        QWidget* name = gui.window().focusWidget();
        const QRect row(name->parentWidget()->mapTo(area->viewport(), QPoint()), name->parentWidget()->size());
        EXPECT_TRUE(area->viewport()->rect().contains(row)) << section << ": " << row.top() << " to " << row.bottom();
    }
    gui.view().importXML(document());
    EXPECT_EQ(area->verticalScrollBar()->value(), 0);
}

TEST(SectionsPanel, MakesRowsWhereTheyAreNeededAndReachesEach)
{
    Gui gui(threeCameras);
    constexpr int many = 30;
    gui.account.set([newId = randomIdentifiers()](auto& settings) {
        for (int i = 0; i < many; ++i)
            settings.sections.push_back({newId(), std::to_string(i), "A", "00:00:01:00", "00:00:02:00"});
    });
    Gui::settle();
    auto* rows = gui.window().findChild<ReservedRows*>();
    EXPECT_LT(rows->rows().size(), 12U);
    const QWidget* second = rows->row(1);
    Gui::settle();
    EXPECT_EQ(rows->rows().at(many - 1)->y(), (many - 1) * second->y()) << "as if the others were there";
    gui.activate();
    gui.withText<>("Add section")->setFocus();
    std::vector<int> visited;
    for (const auto& [key, last] : {std::pair(Qt::Key_Tab, many - 1), {Qt::Key_Backtab, 0}}) {
        while (visited.empty() || visited.back() != last) {
            QTest::keyClick(QApplication::focusWidget(), key);
            Gui::settle();
            auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
            if (field != nullptr && field->placeholderText().startsWith("Section"))
                visited.push_back(field->visibleRegion().isEmpty() ? -1 : field->text().toInt());
            ASSERT_LT(visited.size(), 2U * many);
        }
    }
    EXPECT_EQ(visited.size(), 2U * many - 1) << "each once there and once back";
    EXPECT_LT(rows->rows().size(), 25U) << "those that were left are gone";
    auto* told = QAccessible::queryAccessibleInterface(rows);
    ASSERT_EQ(told->childCount(), many);
    EXPECT_EQ(told->indexOfChild(told->child(25)), 25);
}

TEST(SectionsPanel, CutsNoTextThatIsLongerThanAField)
{
    Gui gui(threeCameras);
    gui.view().addSection();
    auto* name = gui.window().findChild<ReservedRows*>()->findChild<QLineEdit*>();
    for (const std::size_t size : {40'000U, 120'000U}) {
        gui.account.set([size](auto& settings) { settings.sections.front().name.assign(size, 'x'); });
        QTest::keyClick(name, Qt::Key_Y);
        EXPECT_EQ(gui.settings().sections.front().name.size(), size == 40'000 ? size + 1 : size);
    }
}

TEST(SectionsPanel, OffersTheLabelAfterOneThatDropFrameSkips)
{
    QString dropFrame = qt(document()).replace("100/2500s", "1001/30000s").replace("40s", "40040/1000s");
    dropFrame.replace("tcStart=\"0s\">\n<spine>", "tcStart=\"0s\" tcFormat=\"DF\">\n<spine>");
    Gui gui(utf8(dropFrame));
    gui.click("Add section");
    gui.labelled<QLineEdit>("End")->setText("00:01:00;00");
    EXPECT_EQ(gui.settings().sections.at(0).end, "00:01:00;00") << "as it was typed";
    gui.click("Use 00:01:00;02");
    EXPECT_EQ(gui.settings().sections.at(0).end, "00:01:00;02");
    EXPECT_EQ(gui.withText<>("Use 00:01:00;02"), nullptr);
    EXPECT_EQ(gui.window().focusWidget(), gui.labelled<QLineEdit>("End"));
}

TEST(PresetsPanel, KeepsWhatIsTypedAndShowsWhatIsBetweenTwoSteps)
{
    Gui gui(threeCameras);
    gui.click("Save as…");
    auto* sheet = QApplication::activeModalWidget();
    EXPECT_FALSE(gui.withText<>("Save", sheet)->isEnabled());
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_FALSE(gui.state().showSavePreset || sheet->isVisible());
    gui.account.set([](auto& settings) { settings.mainMinimum = 12.5; });
    gui.click("Save as…");
    QTest::keyClicks(sheet->focusWidget(), " Ser");
    gui.account.inbox.setXMLData(threeCameras);
    Gui::settle();
    QTest::keyClicks(sheet->focusWidget(), "mon ");
    QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(gui.labelled<Picker>("Preset")->currentText(), "Sermon") << "a project that arrives takes no word away";
    gui.account.set([](auto& settings) { settings.mainMinimum = 12.5; });
    gui.click("Update");
    gui.account.set([](auto& settings) { settings.mainMinimum = 11; });
    gui.click("Apply");
    EXPECT_EQ(gui.settings().mainMinimum, 12.5) << "and not written back";
    EXPECT_EQ(gui.labelled<StepBox>("Minimum: 13 sec")->text(), "12.5");
    auto* share = gui.labelled<StepSlider>("Target screen time");
    for (const auto& [key, next] : {std::pair(Qt::Key_Right, 75), {Qt::Key_Left, 70}}) {
        gui.account.set([](auto& settings) { settings.mainShare = 72.5; });
        EXPECT_EQ(gui.settings().mainShare, 72.5);
        QTest::keyClick(share, key);
        EXPECT_EQ(gui.settings().mainShare, next);
    }
}

TEST(TimeAxis, HasRoomForEachTimecodeAtEveryZoom)
{
    CutEngine engine;
    engine.frameNumerator = 1001;
    engine.frameDenominator = 30000;
    engine.dropFrame = true;
    engine.length = 215'784; // two hours
    for (double count = 10; count <= 215'784; count *= 1.7) {
        const TimeScale scale({107'890.25 - count / 2, count}, 24, 600);
        const auto ticks = tickFrames(engine, scale, 66);
        EXPECT_GE(ticks.size(), 2U) << count;
        for (std::size_t i = 1; i < ticks.size(); ++i)
            EXPECT_GE(scale.x(ticks[i]) - scale.x(ticks[i - 1]), 66) << count;
        EXPECT_LT(scale.x(ticks.back()), 24 + 600);
    }
}

} // namespace
} // namespace corvane
