#include "gui.h"
#include "workspace/window/controls/elided_check_box.h"
#include "workspace/window/controls/elided_label.h"
#include "workspace/window/controls/picker.h"
#include "workspace/window/pictures/coverage_bar.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QTableView>
#include <QTextDocumentFragment>
#include <map>

namespace corvane {
namespace {

using namespace test;

/// What a person who waits over the widget reads.
QString tooltip(QWidget& widget)
{
    (void)tipAt(widget, widget.rect().center()); // an elided text sets its tip when it is asked for
    return QTextDocumentFragment::fromHtml(widget.toolTip()).toPlainText().remove(u'\u200B');
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
    for (QWidget* widget : gui.window().findChildren<QWidget*>()) {
        const QString text = widget->property("text").toString();
        auto* picker = qobject_cast<Picker*>(widget);
        const auto* label = qobject_cast<QLabel*>(widget);
        if (!widget->isVisible() || (text.isEmpty() && picker == nullptr) ||
            qobject_cast<QLineEdit*>(widget) != nullptr)
            continue;
        ++seen;
        if (picker != nullptr)
            expectReadable(*widget, picker->currentText(), size);
        else if (label != nullptr && label->wordWrap())
            EXPECT_LE(label->heightForWidth(label->width()), label->height()) << utf8(text);
        else if (qobject_cast<QPushButton*>(widget) != nullptr)
            EXPECT_LE(widget->minimumSizeHint().width(), widget->width()) << utf8(text);
        else if (label != nullptr || qobject_cast<QAbstractButton*>(widget) != nullptr)
            expectReadable(*widget, qobject_cast<ElidedLabel*>(widget) != nullptr ? text : readText(text), size);
    }
    EXPECT_GT(seen, 100);
}

TEST(Layout, ShowsOrElidesEveryTextAtEverySize)
{
    Gui gui(manyCameras());
    gui.view().generateRoughEdit();
    gui.view().addSection();
    gui.account.set([](auto& settings) { settings.sections[0].end = "half past nine"; });
    for (const QSize size : {QSize(960, 860), QSize(1280, 800), QSize(1920, 1080)})
        expectAllReadable(gui, size);
    gui.account.set([](auto& settings) { settings.sections.clear(); });
    gui.window().resize(960, 860);
    Gui::settle();
    const auto* area = gui.window().findChild<QScrollArea*>();
    EXPECT_LE(area->widget()->height(), 4 * area->viewport()->height()) << "sixteen cameras on four screens";
}

TEST(Layout, PaintsNamesThatBeginAlikeDifferently)
{
    Gui gui(manyCameras());
    gui.window().resize(gui.window().minimumSizeHint());
    for (int camera = 3; camera <= 16; camera += 2)
        gui.view().setCameraIncluded("cam" + std::to_string(camera), ContentView::Inclusion::excluded);
    gui.view().generateRoughEdit();
    Gui::settle();
    std::map<std::string, std::vector<QImage>> pictures;
    for (ElidedLabel* label : gui.window().findChildren<ElidedLabel*>()) {
        if (label->text().startsWith("In the northern") && qobject_cast<CoverageBar*>(label->buddy()) != nullptr)
            pictures["coverage"].push_back(label->grab().toImage());
    }
    for (ElidedCheckBox* box : gui.window().findChildren<ElidedCheckBox*>()) {
        box->setIcon({}); // which differs anyhow
        pictures["tick boxes"].push_back(box->grab().toImage());
    }
    QTableView* usage = gui.table("Actual camera usage");
    for (int row = 0; row < usage->model()->rowCount(); ++row) {
        usage->scrollTo(usage->model()->index(row, 0));
        const QRect cell = usage->visualRect(usage->model()->index(row, 0));
        pictures["usage"].push_back(usage->viewport()->grab(cell.adjusted(24, 0, 0, 0)).toImage());
    }
    EXPECT_GE(usage->columnWidth(0), 80) << "the cameras' column shrinks last";
    EXPECT_GE(gui.table("Cuts")->columnWidth(1), 80);
    auto* picker = gui.labelled<Picker>("Main camera");
    for (int choice = 0; choice < picker->count(); ++choice) {
        const QSignalBlocker blocker(picker);
        picker->setCurrentIndex(choice);
        pictures["picker"].push_back(picker->grab().toImage());
    }
    EXPECT_EQ(pictures.size(), 4U);
    for (const auto& [where, all] : pictures) {
        EXPECT_EQ(all.size(), 16U) << where;
        for (std::size_t i = 0; i < all.size(); ++i)
            EXPECT_EQ(std::ranges::count(all, all[i]), 1) << where << ": " << i;
    }
}

TEST(Layout, EveryAltKeyMeansOneThing)
{
    Gui gui(manyCameras());
    gui.account.defaults.values["Corvane.savedPresets.v1"] = "damaged";
    gui.view().edit([](WorkspaceState& state) { state.presetName = "Sermon"; });
    gui.view().savePreset(ContentView::PresetSave::asNew);
    gui.view().dismissError();
    gui.view().generateRoughEdit();
    Gui::settle();
    std::vector<QString> texts;
    for (const QAction* menu : gui.window().menuBar()->actions())
        texts.push_back(menu->text());
    for (const QWidget* widget : gui.window().findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool names = label != nullptr && label->buddy() != nullptr && !widget->inherits("corvane::ElidedLabel");
        if (widget->isVisible() && (names || qobject_cast<const QAbstractButton*>(widget) != nullptr))
            texts.push_back(widget->property("text").toString());
    }
    std::map<QString, QString> keys;
    for (const QString& text : texts) {
        if (const QString key = QKeySequence::mnemonic(text).toString(); !key.isEmpty()) {
            EXPECT_TRUE(keys.emplace(key, text).second)
                << utf8(key) << ": " << utf8(text) << " and " << utf8(keys[key]);
        }
    }
    EXPECT_GT(keys.size(), 12U);
}

TEST(Layout, NoButtonLiesOverATableAtTheSmallestSize)
{
    Gui gui(manyCameras());
    gui.view().generateRoughEdit();
    const std::string lines = utf8(QString("XML and settings were saved. ").repeated(16));
    gui.view().edit([&](WorkspaceState& state) { state.status = state.sessionSaveError.emplace(lines); });
    for (int shrunk = 0; shrunk < 3; ++shrunk) {
        gui.window().resize(300, 300);
        Gui::settle();
    }
    const auto place = [&](QWidget* widget) { return QRect(widget->mapTo(&gui.window(), QPoint()), widget->size()); };
    for (QTableView* table : gui.window().findChildren<QTableView*>()) {
        for (QPushButton* button : gui.window().findChildren<QPushButton*>())
            EXPECT_FALSE(button->isVisible() && place(button).intersects(place(table))) << utf8(button->text());
    }
}

TEST(Layout, TabVisitsEverythingOnceInReadingOrderAndByName)
{
    Gui gui(manyCameras());
    gui.view().addSection(); // made last, but not reached last
    gui.view().generateRoughEdit();
    Gui::settle();
    const QString order = "Import Final Cut XML…|?|About|Save as…|Randomly double main camera holds|Opening|Closing|"
                          "Add section|Section name (optional)|HH:MM:SS:FF|HH:MM:SS:FF|Remove|Shuffle rough edit|"
                          "Export to Final Cut…";
    QStringList visited;
    QWidget* first = gui.withText<>("Import Final Cut XML…");
    QWidget* widget = first;
    do {
        const auto* edit = qobject_cast<QLineEdit*>(widget);
        const QString name = edit != nullptr ? edit->placeholderText() : readText(widget->property("text").toString());
        const bool reached = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible();
        if (reached && widget->isEnabled() && order.split("|").contains(name))
            visited << name;
        if (reached && widget->focusProxy() == nullptr) {
            const QAccessibleInterface* control = QAccessible::queryAccessibleInterface(widget);
            EXPECT_FALSE(control->text(QAccessible::Name).isEmpty()) << widget->metaObject()->className();
            EXPECT_TRUE(control->role() != QAccessible::Client || qobject_cast<QScrollArea*>(widget) != nullptr)
                << widget->metaObject()->className();
        }
        widget = widget->nextInFocusChain();
    } while (widget != first);
    EXPECT_EQ(visited.join("|"), order);
}

TEST(Layout, KeysGoToEveryPartAndPanel)
{
    Gui gui(manyCameras());
    gui.view().generateRoughEdit();
    Gui::settle();
    const auto key = [&gui](int pressed, Qt::KeyboardModifiers with) {
        gui.key(pressed, with);
        const QWidget* widget = gui.window().focusWidget();
        EXPECT_FALSE(widget->visibleRegion().isEmpty()) << "scrolled into view";
        while (qobject_cast<const Panel*>(widget) == nullptr)
            widget = widget->parentWidget();
        return utf8(widget->accessibleName());
    };
    int digit = Qt::Key_1;
    for (const char* panel :
         {"Saved presets", "Recording coverage", "Cameras and audio", "Camera balance and pacing",
          "Opening and closing shots", "Fixed camera sections", "Rough edit", "Actual camera usage"}) {
        EXPECT_EQ(gui.withText<QLabel>(panel)->toolTip(), QString("Alt+%1").arg(digit - Qt::Key_0));
        EXPECT_EQ(key(digit++, Qt::AltModifier), panel);
    }
    gui.withText<>("About")->setFocus();
    EXPECT_EQ(key(Qt::Key_F6, Qt::ShiftModifier), "Actual camera usage");
    EXPECT_EQ(key(Qt::Key_F6, Qt::NoModifier), "Fixed camera sections") << "where the focus was last";
    EXPECT_EQ(key(Qt::Key_F6, Qt::NoModifier), "Rough edit");
}

} // namespace
} // namespace corvane
