#include "gui.h"
#include "workspace/window/window_place.h"

#include <gtest/gtest.h>

#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <random>

namespace corvane {
namespace {

using namespace test;

const char* const geometryKey = "Corvane.window.geometry";
const char* const splitKey = "Corvane.window.split";

void dragDown(QWidget& handle, int pixels)
{
    const QPoint place = handle.rect().center();
    QTest::mousePress(&handle, Qt::LeftButton, {}, place);
    QTest::mouseMove(&handle, place + QPoint(0, pixels));
    QTest::mouseRelease(&handle, Qt::LeftButton, {}, place);
}

TEST(WindowPlace, StaysWhereItIsOnAScreenAndIsBroughtOntoOneOtherwise)
{
    const QList<QRect> screens = {{0, 0, 1920, 1080}, {1920, 0, 1280, 1024}};
    const auto place = [&screens](const QRect& inner) {
        return placeOnScreen(inner, QMargins(1, 30, 1, 1), QSize(300, 200), screens);
    };
    for (const QRect& there : {QRect(100, 100, 700, 600), QRect(2000, 30, 600, 500)})
        EXPECT_EQ(place(there), there);
    EXPECT_EQ(place({1800, 30, 600, 500}), QRect(1928, 40, 600, 500)) << "on the one that shows most of it";
    EXPECT_EQ(place({-5000, 300, 600, 500}), QRect(8, 300, 600, 500));
    EXPECT_EQ(place({0, 0, 32767, 32767}), QRect(8, 40, 1904, 1032)) << "with room for a title";
    EXPECT_EQ(place({0, 0, 1900, 1040}), QRect(8, 30, 1900, 1040)) << "no smaller than it must be";
    EXPECT_EQ(place({500, 1070, 1, 1}), QRect(500, 872, 300, 200));
    EXPECT_EQ(firstSize({1920, 1080}), QSize(960, 860));
    EXPECT_EQ(firstSize({1280, 800}), QSize(960, 752));
    EXPECT_EQ(firstSize({853, 533}), QSize(837, 485)) << "1280 × 800 at 150 %";
    QWidget untitled;
    untitled.setGeometry(0, 0, 1920, 1080); // without a frame: but the toolkit leaves room for a title
    EXPECT_NE(placeWithinScreens(untitled.saveGeometry(), {300, 200}, screens), untitled.saveGeometry());
    EXPECT_TRUE(placeWithinScreens("damaged", {300, 200}, screens).isEmpty());
}

TEST(EarlierVersions, LeftAPlaceThatOpens)
{
    const std::string stored = std::string(CORVANE_FIXTURES) + "/0.1.0/";
    MemoryDefaults kept;
    for (const char* key : {geometryKey, splitKey})
        kept.values[key] = readFile(stored + key);
    Gui gui(threeCameras, kept);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_TRUE(screen.contains(gui.window().frameGeometry()));
    // It was 960 × 860 at (240, 27); this screen is 800 × 800.
    EXPECT_EQ(gui.window().geometry(), QRect(8, 40, screen.width() - 16, screen.height() - 48));
}

TEST(MainWindow, RemembersItsPlace)
{
    Gui gui(threeCameras);
    gui.window().setGeometry(20, 40, 770, 701);
    const QRect place = gui.window().geometry();
    auto* split = gui.window().findChild<QSplitter*>();
    split->setSizes({500, 230});
    const QList<int> widths = split->sizes();
    auto* result = gui.window().findChild<ResultSplit*>();
    dragDown(*result->handle(1), -30);
    const QList<int> heights = result->sizes();
    gui.window().close();
    Gui again(threeCameras, gui.account.defaults);
    EXPECT_EQ(again.window().geometry(), place);
    EXPECT_EQ(again.window().findChild<QSplitter*>()->sizes(), widths);
    EXPECT_EQ(again.window().findChild<ResultSplit*>()->sizes(), heights);
}

/// 1280 × 800 at 150 %, with its frame; and the usage of eight cameras is seen whole where the screen has room for
/// that.
TEST(MainWindow, FitsOnASmallScreenAndGivesTheUsageTheHeightThatItNeeds)
{
    for (const int cameras : {3, 8}) {
        std::string angles;
        for (int i = 1; i <= cameras; ++i)
            angles += angle("Camera " + std::to_string(i), clip("0s", "40s"));
        Gui gui(document({angles, "", R"(<mc-source angleID="Camera 1" srcEnable="all"/>)"}));
        gui.window().resize(960, 860);
        gui.view().generateRoughEdit();
        Gui::settle();
        EXPECT_EQ(gui.table("Actual camera usage")->verticalScrollBar()->maximum(), 0) << cameras;
    }
    Gui gui(manyCameras());
    gui.view().generateRoughEdit();
    gui.window().resize(firstSize({853, 533}));
    Gui::settle();
    EXPECT_EQ(gui.window().size(), firstSize({853, 533}));
}

/// Saved places with bytes flipped, cut off and put in by chance.
TEST(MainWindow, OpensOnTheScreenWhateverItsPlaceSays)
{
    Gui gui(threeCameras);
    gui.window().close();
    const auto saved = gui.account.defaults.values;
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    std::mt19937 random(11);
    const auto draw = [&random](std::size_t below) { return random() % below; };
    for (int variant = 0; variant < 60; ++variant) {
        MemoryDefaults damaged;
        damaged.values = saved;
        for (const char* key : {geometryKey, splitKey}) {
            std::string& bytes = damaged.values[key];
            for (std::size_t flips = draw(9); flips > 0; --flips)
                bytes[8 + draw(bytes.size() - 8)] = static_cast<char>(draw(3) == 0 ? 0x7f : draw(256));
            if (draw(10) == 0)
                bytes.resize(1 + draw(bytes.size() - 1));
        }
        Gui opened(variant % 10 == 0 ? threeCameras : "", damaged);
        const QRect frame = opened.window().frameGeometry();
        EXPECT_TRUE(screen.contains(frame)) << variant << ": at " << frame.x() << "," << frame.y();
        EXPECT_LE(opened.window().normalGeometry().width(), screen.width()) << variant;
        opened.window().hide();
    }
}

} // namespace
} // namespace corvane
