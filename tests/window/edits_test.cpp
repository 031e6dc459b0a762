#include "gui.h"
#include "workspace/window/edits_sheet.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvane {
namespace {

using namespace test;

/// The list of the edits, opened by the caption.
struct ListGui : Gui {
    EditsSheet* sheet = nullptr;
    QTableView* list = nullptr;
    int notices = 0;
    Subscription counted;

    explicit ListGui(int edits) : Gui(threeCameras)
    {
        for (int made = 0; made < edits; ++made)
            view().generateRoughEdit();
        settle();
        click(QString("Edit %1 of %1").arg(edits));
        sheet = window().findChild<EditsSheet*>();
        list = table("All edits");
        counted = view().observe([this](const Changes&) { ++notices; });
    }

    [[nodiscard]] QModelIndex cell(int row, EditsTableModel::Column column) const
    {
        return list->model()->index(row, column);
    }
    [[nodiscard]] QString text(int row, EditsTableModel::Column column) const
    {
        return cell(row, column).data().toString();
    }
    [[nodiscard]] int marked() const { return list->currentIndex().row(); }
};

TEST(AllEdits, AreMarkedByArrowsAndShownByReturnOrAClickOnce)
{
    ListGui gui(12);
    ASSERT_TRUE(gui.sheet != nullptr && gui.sheet->isVisible());
    EXPECT_EQ(gui.sheet->focusWidget(), gui.list);
    EXPECT_EQ(gui.marked(), 11);
    EXPECT_NE(gui.withText<QLabel>("The next new edit comes after edit 12."), nullptr);
    gui.key(gui.list, Qt::Key_Home);
    gui.key(gui.list, Qt::Key_Down);
    EXPECT_EQ(gui.marked(), 1);
    EXPECT_EQ(gui.notices, 0) << "the mark changes nothing";
    gui.key(gui.list, Qt::Key_Return);
    EXPECT_EQ(gui.state().history.index, 1);
    EXPECT_NE(gui.withText<>("Edit 2 of 12"), nullptr);
    EXPECT_NE(gui.withText<QLabel>("The next new edit replaces edits 3 to 12."), nullptr);
    const QPoint third = gui.list->visualRect(gui.cell(2, EditsTableModel::made)).center();
    QTest::mouseClick(gui.list->viewport(), Qt::LeftButton, {}, third);
    QTest::mouseDClick(gui.list->viewport(), Qt::LeftButton, {}, third);
    EXPECT_EQ(gui.state().history.index, 2);
    EXPECT_EQ(gui.notices, 2) << "once each";
    EXPECT_TRUE(gui.sheet->isVisible()) << "to look at another one";
    gui.key(gui.list, Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(gui.list->model()->rowCount(), 4) << "the window's keys work";
    EXPECT_EQ(gui.marked(), 3);
    gui.account.set([](auto& settings) { settings.mainShare = 40; });
    EXPECT_FALSE(gui.cell(3, EditsTableModel::number).data(Qt::FontRole).isValid()) << "none is on screen";
    gui.view().importXML(otherProject);
    EXPECT_EQ(gui.list->model()->rowCount(), 0);
    EXPECT_NE(gui.withText<QLabel>("There is no edit yet."), nullptr);
    gui.key(gui.list, Qt::Key_Escape);
    EXPECT_FALSE(gui.sheet->isVisible());
    gui.key(gui.list, Qt::Key_F1);
    EXPECT_EQ(Gui::helpTopic(), "Shuffle, Back and Forward");
}

TEST(AllEdits, TellWhatTheTablesTellOfEach)
{
    ListGui gui(2);
    const auto& cuts = gui.state().cuts();
    const QRect strip = gui.list->visualRect(gui.cell(1, EditsTableModel::strip));
    const QImage picture = gui.list->viewport()->grab(strip).toImage();
    const CameraMarks marks(gui.view());
    for (const Cut& cut : cuts) {
        const double middle = static_cast<double>(2 * cut.start + cut.duration) / 2000;
        const int x = 6 + static_cast<int>((strip.width() - 12) * middle);
        EXPECT_EQ(picture.pixelColor(x, strip.height() / 2), marks.of(cut.angle).color) << cut.start;
    }
    EXPECT_EQ(gui.text(1, EditsTableModel::cuts), QString::number(cuts.size()));
    EXPECT_EQ(gui.text(1, EditsTableModel::mainShare), gui.table("Actual camera usage")->model()->index(0, 2).data());
    const Frames shortest = std::ranges::min(cuts, {}, &Cut::duration).duration;
    EXPECT_EQ(gui.text(1, EditsTableModel::shortestShot), QString::number(static_cast<double>(shortest) / 25) + " sec");
    const QString line = gui.cell(1, EditsTableModel::number).data(Qt::AccessibleTextRole).toString();
    EXPECT_TRUE(line.startsWith("Edit 2, on screen, made " + gui.text(1, EditsTableModel::made))) << utf8(line);
    EXPECT_TRUE(
        gui.cell(0, EditsTableModel::strip).data(Qt::AccessibleTextRole).toString().startsWith("A (Camera 1): "));
}

} // namespace
} // namespace corvane
