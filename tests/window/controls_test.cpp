#include "workspace/window/controls/picker.h"
#include "workspace/window/controls/step_box.h"
#include "workspace/window/controls/step_slider.h"
#include "workspace/window/controls/timecode_field.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <utility>
#include <vector>

namespace corvane {
namespace {

void type(QWidget& widget, const QString& text)
{
    QTest::keyClicks(&widget, text);
    QTest::keyClick(&widget, Qt::Key_Return);
}

void wheel(QWidget& widget, int notches)
{
    const QPoint place = widget.rect().center();
    QWheelEvent event(
        place, widget.mapToGlobal(place), {}, QPoint(0, notches * 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
        false);
    QApplication::sendEvent(&widget, &event);
}

void setByAssistance(QWidget& widget, double value)
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
    ASSERT_NE(interface, nullptr);
    ASSERT_NE(interface->valueInterface(), nullptr);
    interface->valueInterface()->setCurrentValue(value);
}

TEST(StepBox, ShowsWhatStandsBetweenItsStepsAndGivesOnlySteps)
{
    StepBox box({0, 600, 10});
    double chosen = -1;
    QObject::connect(&box, &StepBox::chosen, [&chosen](double value) { chosen = value; });
    box.QWidget::show();
    box.show(12.5);
    EXPECT_EQ(box.text(), "12.5");
    EXPECT_EQ(chosen, -1) << "showing never writes";
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_EQ(chosen, -1) << "nor does passing by";
    box.stepBy(1);
    EXPECT_EQ(chosen, 20) << "the next step, not a step further";
    box.show(12.5);
    box.stepBy(-1);
    EXPECT_EQ(chosen, 10);
    box.selectAll();
    type(box, "47");
    EXPECT_EQ(chosen, 50);
    EXPECT_EQ(box.text(), "50");
    box.selectAll();
    QTest::keyClicks(&box, "88");
    QTest::keyClick(&box, Qt::Key_Control, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(chosen, 50) << "not while it is typed";
    QTest::keyClick(&box, Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(chosen, 90) << "before a menu's key does its work";
    using Typed = std::vector<std::pair<const char*, double>>;
    for (const auto& [typed, nearest] : Typed{{"604", 600}, {"99999999999", 600}, {"-30", 0}}) {
        box.selectAll();
        QTest::keyClicks(&box, typed);
        EXPECT_EQ(box.text(), typed) << "no digit is dropped";
        QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&box, &left);
        EXPECT_EQ(chosen, nearest);
        EXPECT_EQ(box.text().toDouble(), nearest);
    }
    box.selectAll();
    QTest::keyClicks(&box, "5x7");
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(chosen, 70) << "from what was typed";
    setByAssistance(box, 123);
    EXPECT_EQ(chosen, 120);
    box.show(600);
    box.stepBy(1);
    EXPECT_EQ(box.value(), 600);
}

TEST(StepSlider, ShowsWhatStandsBetweenItsStepsAndGivesOnlySteps)
{
    StepSlider slider({10, 90, 5});
    int chosen = -1;
    QObject::connect(&slider, &StepSlider::chosen, [&chosen](int value) { chosen = value; });
    slider.resize(300, 24);
    slider.QWidget::show();
    slider.show(72.5);
    EXPECT_EQ(chosen, -1);
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(chosen, 75);
    slider.show(72.5);
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_EQ(chosen, 70);
    QTest::keyClick(&slider, Qt::Key_End);
    EXPECT_EQ(chosen, 90);
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(slider.value(), 90);
    setByAssistance(slider, 33);
    EXPECT_EQ(chosen, 35);
    // A drag passes over every pixel; only steps come out.
    QSignalSpy spy(&slider, &StepSlider::chosen);
    const QPoint handle(slider.width() * (35 - 10) / 80, slider.height() / 2);
    QTest::mousePress(&slider, Qt::LeftButton, {}, handle);
    for (int x = handle.x(); x < slider.width(); x += 3)
        QTest::mouseMove(&slider, QPoint(x, handle.y()));
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(slider.width(), handle.y()));
    EXPECT_GT(spy.size(), 3);
    for (const auto& arguments : spy)
        EXPECT_EQ(arguments.front().toInt() % 5, 0);
}

TEST(Wheel, GoesPastControlsThatAreOnlyScrolledOver)
{
    QScrollArea area;
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    auto* box = new StepBox({0, 600, 10});
    auto* slider = new StepSlider({10, 90, 5});
    auto* picker = new Picker;
    picker->show({{"a", "A"}, {"b", "B"}}, "a");
    for (QWidget* each : {static_cast<QWidget*>(box), static_cast<QWidget*>(slider), static_cast<QWidget*>(picker)})
        column->addWidget(each);
    column->addSpacing(2000);
    area.setWidget(content);
    area.resize(200, 150);
    area.show();
    area.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&area));
    for (QWidget* each : {static_cast<QWidget*>(box), static_cast<QWidget*>(slider), static_cast<QWidget*>(picker)})
        wheel(*each, -1);
    EXPECT_EQ(box->value(), 0);
    EXPECT_EQ(slider->value(), 10);
    EXPECT_EQ(picker->currentIndex(), 0);
    EXPECT_GT(area.verticalScrollBar()->value(), 0) << "the column is what scrolls";

    box->setFocus();
    wheel(*box, 1);
    EXPECT_EQ(box->value(), 0) << "the hand is still scrolling";
    QTest::qWait(450);
    wheel(*box, 1);
    EXPECT_EQ(box->value(), 10);
}

TEST(TimecodeField, KeepsTheCaretAndMarksABadEntry)
{
    const auto judge = [](const std::string& text) {
        return text == "01:00" ? std::nullopt : std::optional<TimecodeAdvice>({"Not a timecode: " + text, {}});
    };
    TimecodeField field("Start", judge);
    field.show("01:00");
    field.QWidget::show();
    std::string typed;
    QObject::connect(&field, &TimecodeField::typed, [&](const std::string& text) {
        typed = text;
        field.show(text); // as the controller's notice does
    });
    field.edit().setCursorPosition(2);
    QTest::keyClicks(&field.edit(), "9");
    EXPECT_EQ(typed, "019:00");
    EXPECT_EQ(field.edit().cursorPosition(), 3);
    EXPECT_TRUE(field.edit().property("bad").toBool());
    EXPECT_EQ(field.edit().toolTip(), "Not a timecode: 019:00");
    QTest::keyClick(&field.edit(), Qt::Key_Backspace);
    EXPECT_FALSE(field.edit().property("bad").toBool());
}

} // namespace
} // namespace corvane
