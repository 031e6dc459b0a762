#include "gui.h"
#include "workspace/window/camera_marks.h"
#include "workspace/window/controls/picker.h"
#include "workspace/window/controls/reserved_rows.h"
#include "workspace/window/controls/step_box.h"
#include "workspace/window/controls/step_slider.h"
#include "workspace/window/pictures/coverage_bar.h"
#include "workspace/window/pictures/cut_strip.h"
#include "workspace/window/pictures/time_axis.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenuBar>
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
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, number);
    QTest::keyClick(&box, Qt::Key_Return);
}

TEST(CamerasPanel, WritesEveryChoice)
{
    Gui gui(threeCameras);
    choose(*gui.labelled<Picker>("Main camera"), "B (Camera 1)");
    EXPECT_EQ(gui.settings().mainCamera, "B");
    EXPECT_EQ(gui.settings().otherCameras, (std::set<std::string>{"A", "C"}));
    choose(*gui.labelled<Picker>("Continuous audio"), "C (Camera 1) (has gaps)");
    EXPECT_EQ(gui.settings().audio, "C");
    enter(*gui.labelled<StepBox>("Wait before returning to main camera: 0 sec"), "34");
    EXPECT_EQ(gui.settings().returnTimes.at("B"), 30);
    enter(*gui.labelled<StepBox>("Wait before returning to this camera: 0 sec", 1), "120");
    EXPECT_EQ(gui.settings().returnTimes.at("C"), 120);
    EXPECT_NE(gui.labelled<StepBox>("Wait before returning to this camera: 120 sec"), nullptr);

    QTest::keyClick(gui.labelled<StepSlider>("Frequency for C (Camera 1)"), Qt::Key_End);
    EXPECT_EQ(gui.settings().frequencies.at("C"), 10);
    EXPECT_NE(gui.withText<QLabel>("Frequency: 10"), nullptr);
    EXPECT_NE(gui.withText<QLabel>("67% of additional camera choices"), nullptr);
    gui.click("A (Camera 1)");
    EXPECT_EQ(gui.settings().otherCameras, (std::set<std::string>{"C"}));
    EXPECT_NE(
        gui.withText<QLabel>("Frequency needs at least 3 included cameras: the main camera and 2 others. With 2 "
                             "cameras, use the main camera balance."),
        nullptr);
    EXPECT_NE(gui.withText<QLabel>("A (Camera 1) (excluded)"), nullptr);
}

TEST(PacingPanel, CouplesTheBoundsAndMovesInSteps)
{
    Gui gui(threeCameras);
    enter(*gui.labelled<StepBox>("Minimum: 10 sec"), "30");
    EXPECT_EQ(gui.settings().mainMinimum, 30);
    EXPECT_EQ(gui.settings().mainMaximum, 30);
    enter(*gui.labelled<StepBox>("Maximum: 30 sec"), "5");
    EXPECT_EQ(gui.settings().mainMinimum, 5);
    enter(*gui.labelled<StepBox>("Maximum: 8 sec"), "3");
    EXPECT_EQ(gui.settings().otherMinimum, 3);
    QTest::keyClick(
        gui.labelled<StepSlider>("Target screen time: Main 70% · Other cameras combined 30%"), Qt::Key_Right);
    EXPECT_EQ(gui.settings().mainShare, 75);
    EXPECT_NE(gui.withText<QLabel>("Target screen time: Main 75% · Other cameras combined 25%"), nullptr);
    gui.click("Randomly double main camera holds");
    EXPECT_TRUE(gui.settings().doubleMain);

    auto* typedIn = gui.labelled<StepBox>("Minimum: 5 sec");
    typedIn->setFocus();
    typedIn->selectAll();
    QTest::keyClicks(typedIn, "88");
    gui.account.inbox.setXMLData(threeCameras);
    typedIn->clearFocus();
    EXPECT_EQ(gui.settings().mainMinimum, 5) << "what was half typed for another project does not count";
    typedIn->setFocus();
    typedIn->selectAll();
    QTest::keyClicks(typedIn, "604");
    gui.window().close();
    EXPECT_EQ(gui.settings().mainMinimum, 120) << "what is typed counts before the window closes";
}

TEST(BookendsPanel, WritesBothShots)
{
    Gui gui(threeCameras);
    for (const int shot : {0, 1})
        EXPECT_FALSE(
            gui.labelled<Picker>("Camera", shot)->isEnabled() || gui.labelled<StepBox>("15 sec", shot)->isEnabled());
    gui.click("Opening");
    EXPECT_FALSE(gui.labelled<Picker>("Camera", 1)->isEnabled());
    choose(*gui.labelled<Picker>("Camera", 0), "B (Camera 1)");
    enter(*gui.labelled<StepBox>("15 sec", 0), "4");
    gui.click("Closing");
    choose(*gui.labelled<Picker>("Camera", 1), "A (Camera 1)");
    enter(*gui.labelled<StepBox>("15 sec", 0), "6");
    const EditSettings& settings = gui.settings();
    EXPECT_TRUE(settings.openingEnabled && settings.closingEnabled);
    EXPECT_EQ(settings.openingCamera, "B");
    EXPECT_EQ(settings.openingSeconds, 4);
    EXPECT_EQ(settings.closingCamera, "A");
    EXPECT_EQ(settings.closingSeconds, 6);
    gui.click("Opening");
    gui.click("Opening");
    EXPECT_TRUE(gui.labelled<StepBox>("4 sec")->isEnabled()) << "kept while it was off";
    EXPECT_EQ(settings.openingCamera, "B");
}

TEST(SectionsPanel, AddsChangesRemovesAndBringsBack)
{
    Gui gui(threeCameras);
    gui.click("Add section");
    ASSERT_EQ(gui.settings().sections.size(), 1U);
    auto* end = gui.labelled<QLineEdit>("End");
    end->setFocus();
    end->selectAll();
    QTest::keyClicks(end, "00:00:10:9");
    EXPECT_FALSE(end->property("bad").toBool()) << "not before it is complete";
    QTest::keyClicks(end, "9");
    EXPECT_EQ(gui.settings().sections[0].end, "00:00:10:99");
    EXPECT_TRUE(end->property("bad").toBool());
    EXPECT_NE(gui.withText<QLabel>(end->toolTip()), nullptr) << "the reader's own sentence is on screen";
    end->selectAll();
    QTest::keyClicks(end, "00:00:10:00");
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
    auto* name = gui.window().findChild<QLineEdit*>();
    for (QLineEdit* each : gui.window().findChildren<QLineEdit*>()) {
        if (each->placeholderText() == "Section name (optional)")
            name = each;
    }
    QTest::keyClicks(name, "Prayer");
    choose(*gui.labelled<Picker>("Camera", 2), "B (Camera 1)");
    gui.click("Add section");
    ASSERT_EQ(gui.settings().sections.size(), 2U);
    EXPECT_EQ(gui.settings().sections[1].start, "00:00:10:00");
    const auto both = gui.settings().sections;
    EXPECT_EQ(both[0].name, "Prayer");
    EXPECT_EQ(both[0].camera, "B");
    gui.click("Remove");
    EXPECT_EQ(gui.settings().sections, (std::vector<SectionDraft>{both[1]}));
    QTest::keyClick(&gui.window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(gui.settings().sections, both);
}

TEST(SectionsPanel, BringsANewSectionIntoViewAndAnotherProjectToItsTop)
{
    Gui gui(threeCameras);
    gui.window().resize(960, 700);
    auto* area = gui.window().findChild<QScrollArea*>();
    auto* add = gui.withText<>("Add section");
    for (int section = 0; section < 3; ++section) {
        gui.view().edit([](WorkspaceState& state) { // leaves room for the next
            if (!state.settings.sections.empty())
                state.settings.sections.back().end = "00:00:0" + std::to_string(state.settings.sections.size()) + ":00";
        });
        area->ensureWidgetVisible(add);
        add->click();
        QWidget* name = gui.window().focusWidget();
        const QRect row(name->parentWidget()->mapTo(area->viewport(), QPoint()), name->parentWidget()->size());
        EXPECT_TRUE(area->viewport()->rect().contains(row)) << section << ": " << row.top() << " to " << row.bottom();
    }
    EXPECT_NE(gui.withText<QLabel>("Concert"), nullptr);
    EXPECT_NE(gui.withText<QLabel>("00:00:40:00 · 25 fps"), nullptr);
    gui.view().importXML(document());
    EXPECT_EQ(area->verticalScrollBar()->value(), 0);
}

TEST(SectionsPanel, MakesRowsWhereTheyAreNeededAndReachesEach)
{
    Gui gui(threeCameras);
    constexpr int many = 40;
    gui.view().edit([newId = randomIdentifiers()](WorkspaceState& state) {
        for (int i = 0; i < many; ++i)
            state.settings.sections.push_back({newId(), std::to_string(i), "A", "00:00:01:00", "00:00:02:00"});
    });
    Gui::settle();
    auto* rows = gui.window().findChild<ReservedRows*>();
    const auto placeOf = [rows](int position) { return rows->rows().at(position)->y(); };
    EXPECT_LT(rows->rows().size(), 12U);
    EXPECT_EQ(placeOf(many - 1), (many - 1) * placeOf(1)) << "as if the others were there";
    gui.window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&gui.window()));
    gui.withText<>("Add section")->setFocus();
    std::vector<int> visited;
    for (const auto& [key, last] : {std::pair(Qt::Key_Tab, many - 1), {Qt::Key_Backtab, 0}}) {
        while (visited.empty() || visited.back() != last) {
            QTest::keyClick(QApplication::focusWidget(), key);
            Gui::settle();
            auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
            if (field != nullptr && field->placeholderText().startsWith("Section")) {
                EXPECT_FALSE(field->visibleRegion().isEmpty());
                visited.push_back(field->text().toInt());
            }
            ASSERT_LT(visited.size(), 2U * many);
        }
    }
    EXPECT_EQ(visited.size(), 2U * many - 1) << "each once there and once back";
    EXPECT_LT(rows->rows().size(), 25U) << "those that were left are gone";
    auto* told = QAccessible::queryAccessibleInterface(rows);
    ASSERT_EQ(told->childCount(), many);
    auto* row = told->child(35);
    EXPECT_EQ(told->indexOfChild(row), 35);
    EXPECT_EQ(qobject_cast<QWidget*>(row->object())->findChild<QLineEdit*>()->text(), "35");
}

TEST(SectionsPanel, CutsNoTextThatIsLongerThanAField)
{
    Gui gui(threeCameras);
    gui.view().addSection();
    const std::string longer(40'000, 'x');
    auto* name = gui.window().findChild<ReservedRows*>()->findChild<QLineEdit*>();
    name->insert(qt(longer));
    EXPECT_EQ(gui.settings().sections.front().name, longer);
    for (const std::string& text : {longer, longer + longer + longer}) {
        gui.view().edit([&text](WorkspaceState& state) {
            auto& section = state.settings.sections.front();
            section.name = section.end = text;
        });
        for (auto* field : gui.window().findChild<ReservedRows*>()->findChildren<QLineEdit*>())
            QTest::keyClick(field, Qt::Key_Y);
        const SectionDraft& section = gui.settings().sections.front();
        for (const std::string& kept : {section.name, section.end})
            EXPECT_EQ(kept.size(), text == longer ? 40'001U : 120'000U);
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

TEST(PresetsPanel, SavesAppliesUpdatesAndDeletes)
{
    Gui gui(threeCameras);
    EXPECT_FALSE(gui.withText<>("Apply")->isEnabled());
    EXPECT_EQ(gui.withText<>("Apply")->toolTip(), "Choose a preset first.");
    gui.click("Save as…");
    auto* sheet = QApplication::activeModalWidget();
    ASSERT_NE(sheet, nullptr);
    EXPECT_FALSE(gui.withText<>("Save", sheet)->isEnabled());
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_FALSE(gui.state().showSavePreset);
    EXPECT_FALSE(sheet->isVisible());
    gui.click("Save as…");
    QTest::keyClicks(sheet->focusWidget(), " Ser");
    gui.account.inbox.setXMLData(threeCameras);
    Gui::settle();
    EXPECT_TRUE(sheet->isVisible()) << "a project that arrives takes no word away";
    QTest::keyClicks(sheet->focusWidget(), "mon ");
    QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_NE(gui.withText<QLabel>("Saved Sermon."), nullptr);
    EXPECT_EQ(gui.labelled<Picker>("Preset")->currentText(), "Sermon");

    gui.view().edit([](WorkspaceState& state) { state.settings.mainMinimum = 12.5; });
    gui.click("Update");
    gui.view().edit([](WorkspaceState& state) { state.settings.mainMinimum = 11; });
    gui.click("Apply");
    EXPECT_EQ(gui.settings().mainMinimum, 12.5) << "shown between two steps, and not written back";
    EXPECT_EQ(gui.labelled<StepBox>("Minimum: 13 sec")->text(), "12.5");
    gui.click("Delete");
    EXPECT_TRUE(gui.view().presets().presets().empty());
    EXPECT_EQ(gui.labelled<Picker>("Preset")->currentText(), "Choose a preset");
    gui.window().menuBar()->actions()[1]->menu()->actions().front()->trigger();
    EXPECT_EQ(gui.view().presets().presets().size(), 1U);

    EXPECT_EQ(gui.withText<>("Start a New List…"), nullptr) << "the list can be read";
    gui.account.defaults.values["Corvane.savedPresets.v1"] = "{}";
    gui.click("Update");
    gui.click("Start a New List…");
    EXPECT_EQ(gui.withText<>("Start a New List…"), nullptr);
    EXPECT_EQ(gui.labelled<Picker>("Preset")->count(), 1);
}

TEST(CoveragePanel, NamesTheMarkersOfTheSourceClip)
{
    Gui gui(document({.inClip = R"(<mc-source angleID="A" srcEnable="all"/><marker start="20s" value="Sermon"/>)"}));
    gui.view().generateRoughEdit();
    Gui::settle();
    const auto* axis = gui.window().findChild<TimeAxis*>();
    EXPECT_EQ(axis->accessibleDescription(), "Markers: Sermon at 00:00:20:00.");
    const auto* strip = gui.window().findChild<CutStrip*>();
    EXPECT_TRUE(strip->accessibleDescription().endsWith("Markers: Sermon at 00:00:20:00."));
    const TimeScale scale(1000, 0, axis->width());
    EXPECT_EQ(markerAt(axis->width() / 2 + 3, scale, {{500, "Sermon"}}), (ClipMarker{500, "Sermon"}));
    EXPECT_EQ(markerAt(axis->width() / 2 + 9, scale, {{500, "Sermon"}}), std::nullopt);
}

TEST(CameraMarks, CountCamerasAndNotAngles)
{
    Gui gui(document(
        {angle("Mix", clip("0s", "40s", "a")) + angle("A", clip("0s", "40s")) + angle("B", clip("0s", "40s"))}));
    const CameraMarks marks(gui.view());
    EXPECT_EQ(marks.of("A").letter, "A");
    EXPECT_EQ(marks.of("B").letter, "B");
    EXPECT_EQ(marks.of("Mix").letter, "");
    const auto painted = [icon = marks.chip("B")](QIcon::Mode mode) {
        return icon.pixmap(QSize(18, 18), mode).toImage();
    };
    EXPECT_EQ(painted(QIcon::Selected), painted(QIcon::Normal)) << "a chosen row keeps its camera's colour";
}

TEST(CoveragePanel, NamesTheProjectItsBarsAndItsGaps)
{
    Gui gui(threeCameras);
    EXPECT_NE(gui.withText<QLabel>("Concert · 25 frames a second · 00:00:00:00 to 00:00:40:00"), nullptr);
    EXPECT_NE(gui.withText<QLabel>("Audio: A (Camera 1)"), nullptr);
    EXPECT_NE(
        gui.withText<QLabel>("Selected cameras cover the whole project, including all fixed camera sections."),
        nullptr);
    EXPECT_EQ(
        gui.labelled<CoverageBar>("C (Camera 1)")->accessibleDescription(),
        "Footage: 00:00:00:00 to 00:00:30:00. No footage: 00:00:30:00 to 00:00:40:00.");
    EXPECT_EQ(
        gui.labelled<CoverageBar>("Selected video gaps")->accessibleDescription(),
        "Selected cameras cover the whole project, including all fixed camera sections.");
    gui.view().selectMainCamera("C");
    for (const char* other : {"A", "B"})
        gui.view().setCameraIncluded(other, ContentView::Inclusion::excluded);
    EXPECT_NE(gui.withText<QLabel>("1 uncovered video section(s)"), nullptr);
    EXPECT_EQ(
        gui.labelled<CoverageBar>("Selected video gaps")->accessibleDescription(), "Gaps: 00:00:30:00 to 00:00:40:00.");
}

} // namespace
} // namespace corvane
