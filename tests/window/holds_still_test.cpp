#include "gui.h"
#include "workspace/captions.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <filesystem>
#include <map>

namespace corvane {
namespace {

using namespace test;

/// A window that compares where its buttons stand before and after what a person does.
struct StillGui : Gui {
    using Gui::Gui;

    std::map<QAbstractButton*, QRect> places()
    {
        settle();
        std::map<QAbstractButton*, QRect> places;
        for (auto* button : window().findChildren<QAbstractButton*>()) {
            if (button->isVisible() && button->window() == &window())
                places[button] = QRect(button->mapTo(&window(), QPoint()), button->size());
        }
        return places;
    }

    void expectStill(const std::string& what, const std::function<void()>& act)
    {
        const auto before = places();
        act();
        for (const auto& [button, place] : places()) {
            const auto was = before.find(button);
            EXPECT_TRUE(was == before.end() || was->second == place) << what << " moved " << utf8(button->text());
        }
    }
    void expectStillAfter(const QString& button)
    {
        expectStill(utf8(button), [&] { click(button); });
    }

    void closeAlert()
    {
        if (QMessageBox* box = alert())
            QTest::keyClick(box, Qt::Key_Return);
        settle();
    }
};

void generateAndExport(StillGui& gui)
{
    for (const char* button : {"Generate rough edit", "Shuffle rough edit", "Back", "Forward"})
        gui.expectStillAfter(button);
    gui.expectStill("the hundredth edit", [&] {
        while (gui.state().history.items.size() < 100)
            gui.view().generateRoughEdit();
    });
    EXPECT_NE(gui.withText<>("Edit 100 of 100"), nullptr);
    gui.account.dialogs.answer = gui.account.folder.file("exports");
    gui.expectStillAfter("Export to Final Cut…");
    EXPECT_FALSE(gui.state().status.empty());
    gui.expectStill("a refused project", [&] {
        gui.view().importXML("<fcpxml/>");
        gui.closeAlert();
    });
    gui.account.breakSessionFile();
    gui.expectStillAfter("Shuffle rough edit");
    EXPECT_TRUE(gui.state().sessionSaveError);
    std::filesystem::remove(gui.account.sessionFile());
    gui.expectStillAfter("Shuffle rough edit");
    gui.expectStill("messages of many lines", [&] {
        gui.view().edit([](WorkspaceState& state) {
            state.status = std::string(2000, 'n') + std::string(" and so on").append(1000, '.');
            state.sessionSaveError = state.presetNotice = "A reason that takes a sentence. " + state.status;
        });
    });
}

void useAPreset(StillGui& gui)
{
    gui.expectStill("a saved preset", [&] {
        gui.click("Save as…");
        QTest::keyClicks(QApplication::activeModalWidget()->focusWidget(), "Sermon");
        QTest::keyClick(QApplication::activeModalWidget()->focusWidget(), Qt::Key_Return);
    });
    EXPECT_TRUE(gui.shows("Saved Sermon."));
    gui.expectStillAfter("Apply");
    gui.expectStillAfter("Delete");
    EXPECT_FALSE(gui.state().presetNotice.empty());
    gui.account.defaults.values["Corvane.savedPresets.v1"] = "damaged";
    gui.expectStill("an unreadable list", [&] { gui.view().startNewPresetList(); });
}

void changeCameras(StillGui& gui)
{
    std::vector<QCheckBox*> cameras;
    for (QCheckBox* box : gui.window().findChildren<QCheckBox*>()) {
        if (box->isVisible() && box->isChecked())
            cameras.push_back(box);
    }
    ASSERT_GE(cameras.size(), 2U);
    for (int round = 0; round < 2; ++round) { // off down to none, and on again
        for (QCheckBox* camera : cameras)
            gui.expectStill(utf8(camera->text()), [&] {
                camera->setFocus();
                QTest::keyClick(camera, Qt::Key_Space);
            });
        EXPECT_EQ(asksForAnotherCamera(gui.view()), round == 0);
    }
    gui.expectStill("a warning", [&] {
        gui.account.set([](auto& settings) { settings.openingSeconds = 100; });
        gui.click("Opening");
    });
    gui.expectStillAfter("Opening");
}

TEST(Window, MovesNoButtonWhenSomethingComesAndGoes)
{
    for (const auto& [project, size] :
         {std::pair(threeCameras, QSize(1264, 740)),
          {manyCameras(), QSize(960, 860)},
          {manyCameras(), QSize(1264, 740)}}) {
        StillGui gui(project);
        gui.window().resize(size);
        gui.expectStill("a section", [&] { gui.view().addSection(); });
        generateAndExport(gui);
        useAPreset(gui);
        changeCameras(gui);
    }
}

} // namespace
} // namespace corvane
