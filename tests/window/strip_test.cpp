#include "gui.h"
#include "workspace/shot_facts.h"
#include "workspace/window/cut_table.h"
#include "workspace/window/panels/cut_panel.h"
#include "workspace/window/pictures/cut_strip.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <QWheelEvent>

namespace corvane {
namespace {

using namespace test;

constexpr double gutter = 24;

/// The window with an edit of about forty cuts of a second each, or longer.
struct StripGui : Gui {
    CutStrip* strip;
    CutTable* table;
    QScrollBar* time;

    explicit StripGui(const std::string& xml = threeCameras, QSize size = {1264, 900}) : Gui(xml)
    {
        window().resize(size);
        account.set([](auto& settings) {
            settings.mainMinimum = settings.mainMaximum = settings.otherMinimum = settings.otherMaximum = 1;
        });
        view().generateRoughEdit();
        settle();
        strip = window().findChild<CutStrip*>();
        table = window().findChild<CutTable*>();
        time = bar(Qt::Horizontal);
    }

    QScrollBar* bar(Qt::Orientation orientation)
    {
        for (QScrollBar* each : strip->findChildren<QScrollBar*>()) {
            if (each->orientation() == orientation)
                return each;
        }
        return nullptr;
    }
    void wheel(QPoint place, int notches, Qt::KeyboardModifiers held = {})
    {
        QWheelEvent event(
            place, strip->mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton, held, Qt::NoScrollPhase, false);
        QApplication::sendEvent(strip, &event);
        settle();
    }
    /// Where a frame stands, as far as the scroll bar tells.
    QPoint at(Frames frame)
    {
        const double part = (static_cast<double>(frame) + 0.5 - time->value()) / time->pageStep();
        return {qRound(gutter + (strip->width() - gutter) * part), strip->height() / 2};
    }
    bool isInView(Frames frame) { return time->value() <= frame && frame <= time->value() + time->pageStep(); }
    std::vector<std::size_t> chosen() { return table->chosen().positions; }
};

TEST(Strip, ZoomsToSingleFramesWhereOnePointsAndScrolls)
{
    StripGui gui;
    EXPECT_FALSE(gui.time->isVisible()) << "all is shown";
    const Frames frame = 700;
    const QPoint place = gui.at(frame);
    for (int notch = 0; notch < 20; ++notch)
        gui.wheel(place, 1, Qt::ControlModifier);
    EXPECT_TRUE(gui.time->isVisible());
    EXPECT_LE(gui.time->pageStep(), gui.strip->width() / 30) << "a frame is wide enough to see";
    EXPECT_NEAR(gui.at(frame).x(), place.x(), gui.strip->width() / gui.time->pageStep() + 1) << "stays at the pointer";
    const int before = gui.time->value();
    gui.wheel(place, -3);
    EXPECT_GT(gui.time->value(), before);
    gui.time->setValue(0);
    QTest::mouseMove(gui.strip, QPoint(30, 40)); // the skimmer's line
    EXPECT_FALSE(gui.strip->grab().isNull());
    QTest::mouseDClick(gui.strip, Qt::LeftButton, {}, place);
    EXPECT_FALSE(gui.time->isVisible());

    gui.key(gui.strip, Qt::Key_End);
    const Frames last = gui.state().cuts().back().start;
    for (int press = 0; press < 8; ++press)
        gui.key(gui.strip, Qt::Key_Plus);
    EXPECT_TRUE(gui.isInView(last)) << "keys zoom at the chosen cut";
    const int zoomed = gui.time->pageStep();
    gui.key(gui.table, Qt::Key_Home);
    EXPECT_TRUE(gui.isInView(0)) << "the strip follows the table";
    gui.click("Shuffle rough edit");
    EXPECT_EQ(gui.time->pageStep(), zoomed) << "a new edit keeps the zoom,";
    EXPECT_TRUE(gui.isInView(0)) << "and its place";
    gui.key(gui.strip, Qt::Key_Minus);
    EXPECT_GT(gui.time->pageStep(), zoomed);
    gui.entry("Fit")->trigger();
    EXPECT_FALSE(gui.time->isVisible());
}

TEST(Strip, AndTableChooseCutsAlike)
{
    StripGui gui;
    const auto count = gui.state().cuts().size();
    for (QWidget* focus : {static_cast<QWidget*>(gui.strip), static_cast<QWidget*>(gui.table)}) {
        focus->setFocus();
        gui.key(focus, Qt::Key_End);
        EXPECT_EQ(gui.chosen(), std::vector<std::size_t>{count - 1});
        gui.key(focus, Qt::Key_Home);
        gui.key(focus, Qt::Key_Right);
        gui.key(focus, Qt::Key_Right);
        gui.key(focus, Qt::Key_Left);
        gui.key(focus, Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_EQ(gui.chosen(), (std::vector<std::size_t>{1, 2}));
        gui.key(focus, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(utf8(QGuiApplication::clipboard()->text()), cutLines(gui.view(), {1, 2}));
    }
    const auto click = [&](std::size_t position, Qt::KeyboardModifiers held, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(gui.strip, button, held, gui.at(gui.state().cuts()[position].start + 5));
        Gui::settle();
    };
    click(3, {});
    EXPECT_EQ(gui.window().focusWidget(), gui.strip);
    click(5, Qt::ShiftModifier);
    EXPECT_EQ(gui.chosen(), (std::vector<std::size_t>{3, 4, 5}));
    gui.key(gui.table, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(gui.chosen(), (std::vector<std::size_t>{3, 4})) << "the table extends what the strip began";
    gui.table->choose(3);
    gui.table->choose(5, Qt::ControlModifier);
    const QPoint third = gui.table->visualRect(gui.table->model()->index(3, 0)).center();
    QTest::mouseClick(gui.table->viewport(), Qt::LeftButton, Qt::ShiftModifier, third);
    EXPECT_EQ(gui.table->chosen().current, 3) << "the row that was clicked, though only the one below it is new";
    click(3, {});
    click(4, Qt::ShiftModifier);
    click(8, Qt::ControlModifier);
    EXPECT_EQ(gui.chosen(), (std::vector<std::size_t>{3, 4, 8}));
    EXPECT_EQ(gui.strip->marked(), gui.table->chosen());
    click(4, {}, Qt::RightButton);
    EXPECT_EQ(gui.chosen().size(), 3U) << "pressed on what is chosen";
    click(6, {}, Qt::RightButton);
    EXPECT_EQ(gui.chosen(), std::vector<std::size_t>{6});
    EXPECT_TRUE(gui.window().findChild<CutPanel*>()->findChild<QMenu*>()->actions().contains(gui.entry("Hold Shots")));
    gui.entry("Copy")->trigger();
    EXPECT_EQ(utf8(QGuiApplication::clipboard()->text()), cutLines(gui.view(), {6}));
    EXPECT_EQ(cutListText(gui.view()).find(cutLines(gui.view(), {0, 1})), cutListText(gui.view()).find('\n') + 1);
}

TEST(Strip, ShowsTheCameraOfANarrowCutThatIsHeldOrChosen)
{
    StripGui gui(threeCameras, {960, 860});
    std::vector<Cut> cuts;
    for (Frames start = 0; start < 1000; start += 5)
        cuts.push_back({{}, start % 2 == 0 ? "A" : "B", start, 5});
    gui.account.showCuts(cuts);
    gui.table->selectAll();
    gui.entry("Hold Shots")->trigger();
    ASSERT_EQ(gui.settings().sections.size(), 200U);
    const CameraMarks marks(gui.view());
    const auto expectColors = [&](const char* what) {
        const QImage picture = gui.strip->grab().toImage();
        for (const std::size_t position : {0U, 1U, 100U, 151U, 199U}) {
            const Cut& cut = gui.state().cuts()[position];
            const auto letters = gui.strip->findChildren<QLabel*>();
            const QWidget* lane = letters[cut.angle == "A" ? 0 : 1];
            const QPoint place(gui.at(cut.start + 2).x(), lane->mapTo(gui.strip, lane->rect().center()).y());
            EXPECT_NEAR(picture.pixelColor(place).hue(), marks.of(cut.angle).color.hue(), 2) << what << position;
        }
    };
    gui.table->clearSelection();
    expectColors("held ");
    gui.table->selectAll();
    expectColors("chosen ");
    gui.table->choose(100);
    expectColors("current ");
}

TEST(Strip, BringsAShortShotThatWasOutOfViewIntoItsMiddle)
{
    StripGui gui;
    gui.account.showCuts({{{}, "A", 0, 400}, {{}, "B", 400, 10}, {{}, "A", 410, 390}, {{}, "B", 800, 10}});
    gui.key(gui.strip, Qt::Key_Home);
    for (int press = 0; press < 4; ++press)
        gui.key(gui.strip, Qt::Key_Plus);
    auto* line = gui.withText<>("2 shots are shorter than your minimum");
    ASSERT_NE(line, nullptr);
    for (const auto& [key, row] : {std::pair(Qt::Key_Space, 1), {Qt::Key_Return, 3}, {Qt::Key_Enter, 1}}) {
        gui.key(line, key);
        EXPECT_EQ(gui.table->chosen().current, row);
        EXPECT_NEAR(gui.time->value() + gui.time->pageStep() / 2, row == 1 ? 405 : 805, 2);
    }
    gui.key(Qt::Key_Y, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&gui] { return gui.table->chosen().current == 3; }));
    const QImage chosen = gui.table->viewport()->grab(gui.table->visualRect(gui.table->model()->index(3, 2))).toImage();
    EXPECT_EQ(chosen.pixelColor(2, chosen.height() / 2), gui.table->palette().color(QPalette::Highlight));
    const auto told = [&gui](int row, int role) { return gui.table->model()->index(row, 2).data(role); };
    EXPECT_TRUE(told(1, Qt::ForegroundRole).isValid() && !told(0, Qt::ForegroundRole).isValid());
    EXPECT_TRUE(told(1, Qt::AccessibleDescriptionRole).toString().endsWith(" Shorter than your minimum."));
    EXPECT_TRUE(told(1, Qt::ToolTipRole).toString().endsWith("Shorter than your minimum."));
    gui.key(line, Qt::Key_Space);
    gui.time->setValue(gui.time->value() + 5);
    const int before = gui.time->value();
    gui.key(line, Qt::Key_Home);
    gui.table->choose(1);
    EXPECT_EQ(gui.time->value(), before) << "what is in view stays where it is";
    gui.account.showCuts({{{}, "A", 0, 1000}});
    EXPECT_FALSE(line->isVisible());
}

TEST(Markers, AreDrawnWithTheirNameWhereThereIsRoomForIt)
{
    CutEngine engine;
    engine.frameNumerator = 1;
    engine.frameDenominator = 25;
    engine.length = 1000;
    const auto isNamed = [&engine](const std::vector<ClipMarker>& markers, int from, int to) {
        QImage picture(500, axisHeight(markers), QImage::Format_RGB32);
        picture.fill(Qt::black);
        QPainter painter(&picture);
        paintAxis(painter, picture.rect(), TimeScale(1000, 0, 500), engine, markers);
        for (int x = from; x < to; ++x) {
            for (int y = 0; y < 15; ++y) { // above the timecodes
                const QColor color = picture.pixelColor(x, y);
                if (color.blue() > color.red() / 2 && color.red() > 100) // no tick
                    return true;
            }
        }
        return false;
    };
    const std::vector<ClipMarker> close = {{100, "Sermon begins"}, {150, "Sermon"}, {150, "Bell"}, {850, "Lapel mic"}};
    EXPECT_FALSE(isNamed(close, 51, 75)) << "less than six letters";
    EXPECT_TRUE(isNamed(close, 76, 140)) << "the last of them has the room";
    EXPECT_TRUE(isNamed(close, 426, 500)) << "what is left of it";
    EXPECT_TRUE(isNamed({{100, "Be"}, {150, "Sermon"}}, 51, 75)) << "all of a short one";
    EXPECT_EQ(markerAt(428, TimeScale(1000, 0, 500), close), close.back()) << "near enough to point at";
    EXPECT_EQ(markerAt(434, TimeScale(1000, 0, 500), close), std::nullopt);
}

TEST(Strip, SharesTheHeightWithTheTable)
{
    for (const auto& [project, rows] : {std::pair(threeCameras, 4), {manyCameras(), 3}}) {
        StripGui gui(project, {960, 860});
        const int room = gui.table->viewport()->height();
        EXPECT_GE(room / gui.table->verticalHeader()->defaultSectionSize(), rows);
        const auto letters = gui.strip->findChildren<QLabel*>();
        ASSERT_EQ(letters.size(), static_cast<qsizetype>(gui.view().videoAngles().size()));
        for (const QLabel* letter : letters)
            EXPECT_TRUE(
                letter->height() >= 12 && letter->fontInfo().pixelSize() >= 9 && !letter->accessibleName().isEmpty());
        QScrollBar* lanes = gui.bar(Qt::Vertical);
        EXPECT_EQ(lanes->isVisible(), letters.size() > 3);
        const QPoint first(10, gui.strip->height() / 2);
        const QString before = tipAt(*gui.strip, first);
        EXPECT_FALSE(before.isEmpty()) << "a letter names its camera";
        gui.wheel(first, -2);
        EXPECT_EQ(tipAt(*gui.strip, first) != before, lanes->isVisible());
        gui.wheel(gui.at(500), 4, Qt::ControlModifier);
        gui.key(gui.strip, Qt::Key_End);
        const std::string camera = gui.state().cuts().back().angle;
        for (const QLabel* letter : letters) {
            const QRect place(letter->mapTo(gui.strip, QPoint()), letter->size());
            if (utf8(letter->accessibleName()) == gui.view().angleLabel(camera)) {
                EXPECT_EQ(letter->visibleRegion().boundingRect().height(), letter->height()) << "its lane is in view";
            }
        }
        gui.window().resize(1600, 1400);
        Gui::settle();
        EXPECT_GT(letters.front()->height(), 12) << "lanes grow";
        EXPECT_FALSE(lanes->isVisible());
    }
}

} // namespace
} // namespace corvane
