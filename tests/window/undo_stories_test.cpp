#include "gui.h"
#include "workspace/window/controls/step_box.h"
#include "workspace/window/controls/step_slider.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QStyle>

namespace corvane {
namespace {

using namespace test;

/// A window in front of the others, so that controls get and lose the focus.
struct FocusedGui : Gui {
    FocusedGui() : Gui(threeCameras) { activate(); }
    QString told(const QString& start)
    {
        const QAction& action = *entry(start);
        return readText(action.text()) + (action.isEnabled() ? "" : " (" + action.data().toString() + ")");
    }
    static void undo() { key(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier); }
    static void redo() { key(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
};

void drag(QSlider& slider, int to)
{
    const auto place = [&slider](int value) {
        const int handle = slider.style()->pixelMetric(QStyle::PM_SliderLength, nullptr, &slider);
        return QPoint(
            handle / 2 +
                QStyle::sliderPositionFromValue(slider.minimum(), slider.maximum(), value, slider.width() - handle),
            slider.height() / 2);
    };
    const int from = slider.value();
    QTest::mousePress(&slider, Qt::LeftButton, {}, place(from));
    for (int step = 1; step <= 40; ++step) {
        QTest::mouseMove(&slider, place(from) + (place(to) - place(from)) * step / 40);
        EXPECT_EQ(slider.value() % 5, 0);
    }
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, place(to));
}

TEST(UndoStory, EachDragEachFieldAndEachClickIsAStep)
{
    FocusedGui gui;
    EXPECT_EQ(gui.told("Undo"), "Undo (There is nothing to undo.)");
    auto* share = gui.labelled<StepSlider>("Target screen time");
    drag(*share, 30);
    drag(*share, 50);
    for (int press = 0; press < 4; ++press)
        Gui::key(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(gui.settings().mainShare, 70);
    for (const double before : {50, 30, 70}) {
        EXPECT_EQ(gui.told("Undo"), "Undo Main Share");
        FocusedGui::undo();
        EXPECT_EQ(gui.settings().mainShare, before);
    }
    EXPECT_EQ(share->value(), 70);
    gui.click("Randomly double main camera holds");
    gui.click("Randomly double main camera holds");
    FocusedGui::undo();
    EXPECT_TRUE(gui.settings().doubleMain);
    auto* minimum = gui.labelled<StepBox>("Minimum: 10 sec");
    type(*minimum, "88");
    FocusedGui::undo();
    EXPECT_EQ(minimum->text(), "10") << "a number that was not taken yet";
    EXPECT_EQ(gui.told("Redo"), "Redo Main Camera Minimum");
    FocusedGui::redo();
    EXPECT_EQ(gui.settings().mainMaximum, 88) << "with what follows it";
}

TEST(UndoStory, WhatIsTypedIntoAFieldIsTakenBackAtOnce)
{
    FocusedGui gui;
    gui.click("Add section");
    QTest::keyClicks(QApplication::focusWidget(), "Prayer");
    auto* end = gui.labelled<QLineEdit>("End");
    type(*end, "00:00:12:00");
    const auto sections = gui.settings().sections;
    FocusedGui::undo();
    EXPECT_EQ(end->text(), "00:00:30:00");
    EXPECT_EQ(gui.settings().sections.at(0).name, "Prayer");
    FocusedGui::undo();
    EXPECT_EQ(gui.settings().sections.at(0).name, "");
    FocusedGui::undo();
    EXPECT_TRUE(gui.settings().sections.empty());
    EXPECT_EQ(gui.withText<>("Remove"), nullptr);
    for (int step = 0; step < 3; ++step)
        gui.key(Qt::Key_Y);
    EXPECT_EQ(gui.settings().sections, sections);
    EXPECT_EQ(utf8(gui.labelled<QLineEdit>("End")->text()), sections[0].end);
}

TEST(Tooltip, GoesWhenItIsNoLongerTrue)
{
    Gui gui(threeCameras);
    for (int made = 0; made < 3; ++made)
        gui.view().generateRoughEdit();
    gui.click("Back");
    gui.click("Back");
    auto* shuffle = gui.withText<>("Shuffle rough edit");
    EXPECT_EQ(tipAt(*shuffle, QPoint(9, 9)), "Replaces edits 2 to 3");
    const auto isGone = [] { return QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 600); };
    gui.view().edit([](WorkspaceState& state) { state.status = "Exported."; });
    EXPECT_FALSE(isGone()) << "it is still true";
    gui.view().generateRoughEdit();
    EXPECT_TRUE(isGone());
}

} // namespace
} // namespace corvane
