#include "gui.h"
#include "workspace/window/controls/picker.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QSlider>

namespace corvane {
namespace {

using namespace test;

TEST(Accessibility, EveryControlHasANameARoleAndWhatItShows)
{
    Gui gui(threeCameras);
    gui.view().addSection();
    Gui::settle();
    int seen = 0;
    for (QWidget* widget : gui.window().findChildren<QWidget*>()) {
        if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr)
            continue;
        ++seen;
        const QAccessibleInterface* control = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(control, nullptr);
        EXPECT_FALSE(control->text(QAccessible::Name).isEmpty()) << widget->metaObject()->className();
        EXPECT_NE(control->role(), QAccessible::Client) << widget->metaObject()->className();
    }
    EXPECT_GT(seen, 30);
}

TEST(Accessibility, APickerTellsItsLabelItsChoiceAndLetsChoose)
{
    Gui gui(threeCameras);
    auto* picker = gui.labelled<Picker>("Main camera");
    QAccessibleInterface* control = QAccessible::queryAccessibleInterface(picker);
    EXPECT_EQ(control->text(QAccessible::Name), "Main camera");
    EXPECT_EQ(control->text(QAccessible::Value), "A (Camera 1)");
    EXPECT_EQ(control->role(), QAccessible::ComboBox);
    ASSERT_EQ(control->childCount(), 3);
    QAccessibleInterface* second = control->child(1);
    EXPECT_EQ(second->text(QAccessible::Name), "B (Camera 1)");
    EXPECT_FALSE(second->state().selected);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(gui.settings().mainCamera, "B");
    EXPECT_TRUE(second->state().selected);
    EXPECT_EQ(control->text(QAccessible::Value), "B (Camera 1)");
}

TEST(Accessibility, NamesFollowTheTextsThatChange)
{
    Gui gui(threeCameras);
    auto* share = gui.labelled<QSlider>("Target screen time");
    const auto name = [share] { return QAccessible::queryAccessibleInterface(share)->text(QAccessible::Name); };
    EXPECT_EQ(name(), "Target screen time: Main 70% · Other cameras combined 30%");
    gui.view().edit([](WorkspaceState& state) { state.settings.mainShare = 40; });
    EXPECT_EQ(name(), "Target screen time: Main 40% · Other cameras combined 60%");
    auto* generate = gui.withText<>("Generate rough edit");
    gui.view().generateRoughEdit();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(generate)->text(QAccessible::Name), "Shuffle rough edit");
}

} // namespace
} // namespace corvane
