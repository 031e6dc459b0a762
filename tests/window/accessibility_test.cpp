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

TEST(Accessibility, TextThatIsPutIntoAFieldIsTaken)
{
    Gui gui(threeCameras);
    gui.click("Add section");
    const auto put = [](QWidget* field, const QString& text) {
        QAccessibleInterface* control = QAccessible::queryAccessibleInterface(field);
        control->editableTextInterface()->replaceText(0, control->textInterface()->characterCount(), text);
    };
    const SectionDraft& section = gui.settings().sections[0];
    put(gui.window().focusWidget(), "Prayer\n\u202E");
    EXPECT_EQ(section.name, "Prayer\n\u202E");
    put(gui.labelled<QLineEdit>("Start"), "00:00:01:00");
    EXPECT_EQ(section.start, "00:00:01:00");
    put(gui.labelled<QLineEdit>("End"), "later");
    EXPECT_EQ(section.end, "later");
    auto* minimum = gui.labelled<QAbstractSpinBox>("Minimum: 10 sec");
    for (const char* text : {"33", "many"}) {
        put(minimum, text);
        EXPECT_EQ(gui.settings().mainMinimum, 33);
        EXPECT_EQ(minimum->text(), "33");
    }
    gui.click("Save as…");
    QWidget* sheet = QApplication::activeModalWidget();
    put(sheet->findChild<QLineEdit*>(), "Sermon");
    QTest::mouseClick(gui.withText<>("Save", sheet), Qt::LeftButton);
    EXPECT_EQ(gui.view().presets().presets().at(0).name, "Sermon");
    gui.click("Save as…");
    EXPECT_EQ(gui.state().presetName, "") << "what the program shows is no entry";
}

} // namespace
} // namespace corvane
