#pragma once

#include "support/documents.h"
#include "support/test_window.h"
#include "workspace/window/main_window.h"
#include "workspace/window/qt_text.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QTableView>
#include <QTest>
#include <QToolTip>
#include <memory>
#include <string>
#include <vector>

namespace corvane::test {

/// A button's or label's text as a person reads it.
inline QString readText(QString text)
{
    return text.replace("&&", "\1").remove('&').replace("\1", "&");
}

/// What a person reads who rests the pointer here.
inline QString tipAt(QWidget& widget, const QPoint& place)
{
    QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
    return QToolTip::text();
}

/// Puts the text in place of what stands in the field, key by key.
template <class Field>
void type(Field& field, const QString& text)
{
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
}

/// The main window on a scratch account, with what a person does to it. Widgets are found by what is written on them.
class Gui {
public:
    TestWindow account;
    NoUpdater updater;
    BusySignLabel busy;
    ResourceFolders resources{{CORVANE_RESOURCES}};
    std::vector<std::string> revealed;

    explicit Gui(const std::string& xml = "", const MemoryDefaults& kept = MemoryDefaults())
    {
        account.quit();
        account.defaults.values = kept.values;
        account.start();
        window_ = std::make_unique<MainWindow>(MainWindowServices{
            account.view(),
            account.inbox,
            account.defaults,
            resources,
            updater,
            busy,
            [this](const std::string& path) { revealed.push_back(path); },
            {"0.1", std::nullopt}});
        window_->show();
        if (!xml.empty())
            account.view().importXML(xml);
        settle();
    }

    MainWindow& window() { return *window_; }
    ContentView& view() { return account.view(); }
    const WorkspaceState& state() { return account.state(); }
    const EditSettings& settings() { return account.state().settings; }

    /// Layouts ask for further layouts; a few rounds are enough.
    static void settle()
    {
        for (int round = 0; round < 5; ++round)
            QCoreApplication::processEvents();
    }

    template <class Widget = QAbstractButton>
    Widget* withText(const QString& text, QWidget* in = nullptr)
    {
        for (Widget* widget : (in != nullptr ? in : window_.get())->template findChildren<Widget*>()) {
            if (readText(widget->text()) == text && widget->isVisible())
                return widget;
        }
        return nullptr;
    }

    /// The control that a label names; the nth of those with the same text.
    template <class Widget>
    Widget* labelled(const QString& label, int nth = 0)
    {
        for (const QLabel* each : window_->findChildren<QLabel*>()) {
            if (each->isVisible() && readText(each->text()).startsWith(label) && each->buddy() != nullptr && nth-- == 0)
                return qobject_cast<Widget*>(each->buddy());
        }
        return nullptr;
    }

    bool shows(const QString& text) { return withText<QLabel>(text) != nullptr; }
    QTableView* table(const QString& name)
    {
        for (QTableView* each : window_->findChildren<QTableView*>()) {
            if (each->accessibleName() == name)
                return each;
        }
        return nullptr;
    }
    void click(const QString& text)
    {
        auto* button = withText<>(text);
        ASSERT_NE(button, nullptr) << utf8(text);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
        settle();
    }

    /// The menu entry with this text, or one that begins with it.
    QAction* entry(const QString& text)
    {
        QAction* found = nullptr;
        for (QAction* action : window_->findChildren<QAction*>()) {
            if (readText(action->text()) == text)
                return action;
            if (found == nullptr && readText(action->text()).startsWith(text))
                found = action;
        }
        return found;
    }
    static void key(QWidget* widget, int pressed, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(widget, static_cast<Qt::Key>(pressed), held);
        settle();
    }
    void key(int pressed, Qt::KeyboardModifiers held = Qt::ControlModifier) { key(window_.get(), pressed, held); }
    /// In front of the others, so that controls get and lose the focus.
    void activate()
    {
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }

    /// The topic in the help window; empty if it is closed.
    static QString helpTopic()
    {
        settle();
        for (const QWidget* each : QApplication::topLevelWidgets()) {
            if (each->objectName() == "helpWindow" && each->isVisible())
                return each->findChild<QListWidget*>()->currentItem()->text();
        }
        return {};
    }

    /// The open alert, or nothing.
    QMessageBox* alert()
    {
        settle();
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }

private:
    std::unique_ptr<MainWindow> window_;
};

inline const std::string threeCameras =
    document({angle("A", clip("0s", "40s")) + angle("B", clip("0s", "40s")) + angle("C", clip("0s", "30s"))});

/// Sixteen cameras whose names no window shows whole, and which begin and end alike.
inline std::string manyCameras()
{
    std::string angles;
    for (int i = 1; i <= 16; ++i)
        angles += "<mc-angle angleID=\"cam" + std::to_string(i) +
                  "\" name=\"In the northern gallery above the organ &amp; choir, camera " + std::to_string(i) +
                  ", handheld by a visiting operator\">" + clip("0s", "40s") + "</mc-angle>";
    return document({angles, "", R"(<mc-source angleID="cam1" srcEnable="all"/>)"});
}

} // namespace corvane::test
