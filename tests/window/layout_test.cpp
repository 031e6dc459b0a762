#include "gui.h"
#include "workspace/window/controls/elided_label.h"
#include "workspace/window/controls/picker.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <map>

namespace corvane {
namespace {

using namespace test;

/// What a person who waits over the widget reads.
QString tooltip(QWidget& widget)
{
    QHelpEvent event(QEvent::ToolTip, widget.rect().center(), widget.mapToGlobal(widget.rect().center()));
    QApplication::sendEvent(&widget, &event);
    return widget.toolTip();
}

void expectReadable(QWidget& widget, const QString& text, const QSize& size)
{
    const int room = widget.width();
    const int needed = widget.fontMetrics().horizontalAdvance(text);
    EXPECT_TRUE(needed <= room || tooltip(widget).contains(text))
        << utf8(text) << " at " << size.width() << " × " << size.height() << ": " << needed << " in " << room;
}

void expectAllReadable(Gui& gui, const QSize& size)
{
    gui.window().resize(size);
    Gui::settle();
    EXPECT_EQ(gui.window().size(), size) << "nothing makes the window wider than the screen";
    int seen = 0;
    for (QLabel* label : gui.window().findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text().isEmpty())
            continue;
        ++seen;
        if (label->wordWrap())
            EXPECT_LE(label->heightForWidth(label->width()), label->height()) << utf8(label->text());
        else
            expectReadable(
                *label, qobject_cast<ElidedLabel*>(label) != nullptr ? label->text() : readText(label->text()), size);
    }
    for (QAbstractButton* button : gui.window().findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->text().isEmpty())
            continue;
        ++seen;
        if (qobject_cast<QPushButton*>(button) != nullptr)
            EXPECT_LE(button->minimumSizeHint().width(), button->width()) << utf8(button->text());
        else
            expectReadable(*button, readText(button->text()), size);
    }
    for (Picker* picker : gui.window().findChildren<Picker*>()) {
        if (picker->isVisible())
            expectReadable(*picker, picker->currentText(), size);
    }
    EXPECT_GT(seen, 100);
}

TEST(Layout, ShowsOrElidesEveryTextAtEverySize)
{
    Gui gui(manyCameras());
    gui.view().generateRoughEdit();
    gui.view().addSection();
    gui.view().edit([](WorkspaceState& state) { state.settings.sections[0].end = "half past nine"; });
    for (const QSize size : {QSize(960, 860), QSize(1280, 800), QSize(1920, 1080)})
        expectAllReadable(gui, size);
}

TEST(Layout, EveryAltKeyMeansOneThing)
{
    Gui gui(manyCameras());
    gui.account.defaults.values["Corvane.savedPresets.v1"] = "damaged";
    gui.view().generateRoughEdit();
    Gui::settle();
    std::map<QString, QString> keys;
    const auto take = [&keys](const QString& text) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty()) {
            const bool isNew = keys.emplace(key, text).second;
            EXPECT_TRUE(isNew) << utf8(key) << ": " << utf8(text) << " and " << utf8(keys[key]);
        }
    };
    for (const QAction* menu : gui.window().menuBar()->actions())
        take(menu->text());
    for (const QAbstractButton* button : gui.window().findChildren<QAbstractButton*>()) {
        if (button->isVisible())
            take(button->text());
    }
    for (const QLabel* label : gui.window().findChildren<QLabel*>()) {
        if (label->isVisible() && label->buddy() != nullptr && qobject_cast<const ElidedLabel*>(label) == nullptr)
            take(label->text());
    }
    EXPECT_GT(keys.size(), 12U);
}

TEST(Layout, TabVisitsEverythingOnceInReadingOrder)
{
    Gui gui(manyCameras());
    gui.view().addSection(); // made last, but not reached last
    gui.view().generateRoughEdit();
    Gui::settle();
    std::vector<QPoint> settingsPlaces;
    std::vector<QString> names;
    QWidget* first = gui.withText<>("Import Final Cut XML…");
    QWidget* widget = first;
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && widget->isEnabled()) {
            if (auto* button = qobject_cast<QAbstractButton*>(widget))
                names.push_back(readText(button->text()));
            else if (auto* edit = qobject_cast<QLineEdit*>(widget);
                     edit != nullptr && !edit->placeholderText().isEmpty())
                names.push_back(edit->placeholderText());
        }
        widget = widget->nextInFocusChain();
    } while (widget != first);
    const auto at = [&names](const QString& name) { return std::ranges::find(names, name) - names.begin(); };
    EXPECT_LT(at("Import Final Cut XML…"), at("?"));
    EXPECT_LT(at("About"), at("Save as…"));
    EXPECT_LT(at("Randomly double main camera holds"), at("Opening"));
    EXPECT_LT(at("Closing"), at("Add section"));
    EXPECT_LT(at("Add section"), at("Section name (optional)"));
    EXPECT_LT(at("HH:MM:SS:FF"), at("Shuffle rough edit"));
    EXPECT_LT(at("Shuffle rough edit"), at("Export to Final Cut…"));
    EXPECT_LT(at("Export to Final Cut…"), static_cast<std::ptrdiff_t>(names.size()));
}

} // namespace
} // namespace corvane
