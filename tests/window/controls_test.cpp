#include "workspace/window/controls/picker.h"
#include "workspace/window/controls/step_box.h"
#include "workspace/window/controls/step_slider.h"

#include <gtest/gtest.h>

#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <utility>
#include <vector>

namespace corvane {
namespace {

void wheel(QWidget& widget, int notches)
{
    const QPoint place = widget.rect().center();
    QWheelEvent event(
        place, widget.mapToGlobal(place), {}, QPoint(0, notches * 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
        false);
    QApplication::sendEvent(&widget, &event);
}

TEST(StepBox, ShowsWhatStandsBetweenItsStepsAndGivesOnlySteps)
{
    StepBox box({0, 600, 10});
    double chosen = -1;
    QObject::connect(&box, &StepBox::chosen, [&chosen](double value) { chosen = value; });
    box.QWidget::show();
    box.show(12.5);
    EXPECT_EQ(box.text(), "12.5");
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_EQ(chosen, -1) << "neither showing nor passing by writes";
    box.stepBy(1);
    EXPECT_EQ(chosen, 20) << "the next step, not a step further";
    box.show(12.5);
    box.stepBy(-1);
    EXPECT_EQ(chosen, 10);
    const auto type = [&box](const QString& text) {
        box.selectAll();
        QTest::keyClicks(&box, text);
    };
    type("47");
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(chosen, 50);
    EXPECT_EQ(box.text(), "50");
    type("88");
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(chosen, 50) << "not while it is typed";
    QTest::keyClick(&box, Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(chosen, 90) << "before a menu's key does its work";
    using Typed = std::vector<std::pair<const char*, double>>;
    for (const auto& [typed, nearest] : Typed{{"604", 600}, {"99999999999", 600}, {"-30", 0}}) {
        type(typed);
        EXPECT_EQ(box.text(), typed) << "no digit is dropped";
        QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&box, &left);
        EXPECT_EQ(chosen, nearest);
        EXPECT_EQ(box.text().toDouble(), nearest);
    }
    type("5x7");
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(chosen, 70) << "from what was typed";
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

} // namespace
} // namespace corvane
