#include "gui.h"
#include "workspace/captions.h"
#include "workspace/window/controls/elided_check_box.h"
#include "workspace/window/controls/elided_label.h"
#include "workspace/window/controls/picker.h"
#include "workspace/window/pictures/coverage_bar.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSlider>
#include <QTableView>
#include <QTextDocumentFragment>
#include <map>
#include <set>

namespace corvane {
namespace {

using namespace test;

/// What a person who waits over the widget reads.
QString tooltip(QWidget& widget)
{
    QHelpEvent event(QEvent::ToolTip, widget.rect().center(), widget.mapToGlobal(widget.rect().center()));
    QApplication::sendEvent(&widget, &event);
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

void expectDifferent(const std::vector<QImage>& pictures, const char* where)
{
    ASSERT_EQ(pictures.size(), 16U) << where;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_TRUE(pictures[i] != pictures[j]) << where << ": " << i << " and " << j;
    }
}

TEST(Layout, PaintsNamesThatBeginAlikeDifferently)
{
    Gui gui(manyCameras());
    gui.window().resize(gui.window().minimumSizeHint());
    for (int camera = 3; camera <= 16; camera += 2)
        gui.view().setCameraIncluded("cam" + std::to_string(camera), ContentView::Inclusion::excluded);
    gui.view().generateRoughEdit();
    Gui::settle();
    std::vector<QImage> bars;
    std::vector<QImage> boxes;
    std::vector<QImage> rows;
    std::vector<QImage> choices;
    for (ElidedLabel* label : gui.window().findChildren<ElidedLabel*>()) {
        if (label->text().startsWith("In the northern") && qobject_cast<CoverageBar*>(label->buddy()) != nullptr)
            bars.push_back(label->grab().toImage());
    }
    for (ElidedCheckBox* box : gui.window().findChildren<ElidedCheckBox*>()) {
        box->setIcon({}); // which differs anyhow
        boxes.push_back(box->grab().toImage());
    }
    for (QTableView* table : gui.window().findChildren<QTableView*>()) {
        for (int row = 0; row < table->model()->rowCount() && table->accessibleName() != "Cuts"; ++row) {
            table->scrollTo(table->model()->index(row, 0));
            const QRect cell = table->visualRect(table->model()->index(row, 0));
            rows.push_back(table->viewport()->grab(cell.adjusted(24, 0, 0, 0)).toImage());
        }
    }
    for (QTableView* table : gui.window().findChildren<QTableView*>()) {
        const int camera = table->accessibleName() == "Cuts" ? 1 : 0;
        EXPECT_GE(table->columnWidth(camera), 80) << "the cameras' column shrinks last";
    }
    auto* picker = gui.labelled<Picker>("Main camera");
    for (int choice = 0; choice < picker->count(); ++choice) {
        const QSignalBlocker blocker(picker);
        picker->setCurrentIndex(choice);
        choices.push_back(picker->grab().toImage());
    }
    expectDifferent(bars, "coverage");
    expectDifferent(boxes, "tick boxes");
    expectDifferent(rows, "usage");
    expectDifferent(choices, "picker");
}

TEST(Elision, KeepsWhatTellsANameFromOthersAndItsNote)
{
    QStringList names;
    for (int i = 1; i <= 16; ++i)
        names << QString("Day2_InterviewOwner_Kitchen_Cam%1_wide (Camera 1)").arg(i, 2, 10, QChar('0'));
    const auto places = tellingPlaces({names.begin(), names.end()});
    const QFontMetrics metrics(QApplication::font());
    for (const QString note : {"", " (excluded)", " (has gaps)"}) {
        for (int width = metrics.horizontalAdvance("Audio: Cam16…" + note); width < 400; width += 7) {
            std::set<QString> painted;
            for (int i = 0; i < 16; ++i) {
                const qsizetype telling = places[static_cast<std::size_t>(i)];
                const QString text = elided(metrics, "Audio: " + names[i] + note, width, {7, telling});
                EXPECT_TRUE(text.startsWith("Audio: ") && text.endsWith(note)) << utf8(text);
                EXPECT_LE(metrics.horizontalAdvance(text), width + 1) << utf8(text);
                painted.insert(text);
            }
            EXPECT_EQ(painted.size(), 16U) << width << ": " << utf8(*painted.begin());
        }
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

TEST(Layout, ACameraTakesFewLinesWhichKeepTheirPlaces)
{
    Gui gui(manyCameras());
    gui.window().resize(960, 860);
    Gui::settle();
    const auto* area = gui.window().findChild<QScrollArea*>();
    EXPECT_LE(area->widget()->height(), 4 * area->viewport()->height()) << "sixteen cameras on four screens";
    const auto places = [&] {
        Gui::settle();
        std::vector<QPoint> all;
        for (const QWidget* each : area->widget()->findChildren<QWidget*>()) {
            if (qobject_cast<const QAbstractButton*>(each) != nullptr || qobject_cast<const QSlider*>(each) != nullptr)
                all.push_back(each->mapTo(area->widget(), QPoint()));
        }
        return all;
    };
    const auto before = places();
    for (int camera = 2; camera < 16; ++camera) {
        auto* box = gui.window().findChildren<ElidedCheckBox*>().at(camera - 1);
        auto* slider = gui.window().findChildren<QSlider*>().at(camera - 1);
        EXPECT_LE(box->parentWidget()->height() + slider->parentWidget()->height(), 100);
        box->click();
        EXPECT_TRUE(places() == before) << "after camera " << camera << " is left out";
    }
    EXPECT_FALSE(frequenciesMatter(gui.view()));
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
    EXPECT_LT(at("Section name (optional)"), at("HH:MM:SS:FF"));
    EXPECT_LT(at("HH:MM:SS:FF"), at("Remove"));
    EXPECT_LT(at("Remove"), at("Shuffle rough edit"));
    EXPECT_LT(at("Shuffle rough edit"), at("Export to Final Cut…"));
    EXPECT_LT(at("Export to Final Cut…"), static_cast<std::ptrdiff_t>(names.size()));
}

TEST(Layout, KeysGoToEveryPartAndPanel)
{
    Gui gui(manyCameras());
    gui.view().generateRoughEdit();
    Gui::settle();
    const auto key = [&gui](int pressed, Qt::KeyboardModifiers with) {
        QTest::keyClick(&gui.window(), static_cast<Qt::Key>(pressed), with);
        Gui::settle();
        const QWidget* widget = gui.window().focusWidget();
        EXPECT_FALSE(widget->visibleRegion().isEmpty()) << "scrolled into view";
        while (widget != nullptr && qobject_cast<const Panel*>(widget) == nullptr)
            widget = widget->parentWidget();
        return widget != nullptr ? utf8(widget->accessibleName()) : "";
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
