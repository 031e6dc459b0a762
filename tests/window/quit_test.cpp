#include "gui.h"

#include <QEvent>
#include <QMenuBar>
#include <QPushButton>
#include <filesystem>

namespace corvane {
namespace {

using namespace test;

/// A window with an edit that no file takes, because a folder has the session's name.
struct UnsavedGui : Gui {
    UnsavedGui() : Gui(threeCameras)
    {
        account.breakSessionFile();
        view().generateRoughEdit();
    }

    /// Presses the button of the question; false when there is none.
    bool answer(const QString& text)
    {
        QMessageBox* box = alert();
        if (box == nullptr || box->text() != qt(state().sessionSaveError.value_or("") + " Quit anyway?"))
            return false;
        auto* button = withText<>(text, box);
        QTest::mouseClick(button, Qt::LeftButton);
        settle();
        return true;
    }
};

TEST(Quitting, AsksWhileTheSessionIsNotSaved)
{
    UnsavedGui gui;
    gui.window().menuBar()->actions()[0]->menu()->actions().back()->trigger();
    EXPECT_FALSE(gui.window().close()) << "one question at a time";
    EXPECT_TRUE(gui.answer("Save again"));
    EXPECT_TRUE(gui.answer("Cancel")) << "asked again, because it failed again";
    EXPECT_TRUE(gui.alert() == nullptr && gui.window().isVisible());
    gui.window().close();
    QTest::keyClick(gui.alert(), Qt::Key_Escape);
    EXPECT_TRUE(gui.window().isVisible());
    gui.window().close();
    std::filesystem::remove(gui.account.sessionFile());
    EXPECT_TRUE(gui.answer("Save again"));
    EXPECT_FALSE(gui.window().isVisible()) << "that worked";
    EXPECT_TRUE(std::filesystem::is_regular_file(gui.account.sessionFile()));
    UnsavedGui other;
    other.window().close();
    EXPECT_TRUE(other.answer("Quit"));
    EXPECT_FALSE(other.window().isVisible());
}

TEST(Quitting, AsksNothingWhenTheSessionOfTheDesktopEnds)
{
    UnsavedGui gui;
    QEvent end(QEvent::Quit);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &end);
    EXPECT_EQ(gui.alert(), nullptr);
    EXPECT_FALSE(gui.window().isVisible());
}

} // namespace
} // namespace corvane
