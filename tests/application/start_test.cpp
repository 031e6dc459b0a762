#include "application/application.h"
#include "support/documents.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <fstream>

namespace corvane {
namespace {

using namespace test;

/// The texts of all visible labels.
QStringList shown()
{
    QStringList texts;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        for (const QLabel* label : window->findChildren<QLabel*>())
            texts << (label->isVisible() ? label->text() : QString());
    }
    return texts;
}

TEST(Start, ShowsTheWindowBeforeTheProjectThatWasGivenIsRead)
{
    const ScratchFolder home;
    for (const char* variable : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"})
        qputenv(variable, home.path().c_str());
    const std::string project = home.file("given.fcpxml");
    const std::string session = home.file("Corvane/session-v1.json");
    const QString line = "Concert · 25 frames a second · 00:00:00:00 to 00:00:40:00";
    for (const bool stored : {false, true}) {
        CorvaneApp app;
        app.start({project}); // which does not exist yet
        std::ofstream(project) << document();
        EXPECT_TRUE(std::ranges::any_of(QApplication::topLevelWidgets(), &QWidget::isVisible));
        EXPECT_EQ(somethingNamed(session), stored);
        EXPECT_FALSE(shown().contains(line)) << "neither read, nor restored where it was";
        EXPECT_TRUE(QTest::qWaitFor([&] { return shown().contains(line); }));
        EXPECT_TRUE(shown().filter("Restored").isEmpty());
        std::filesystem::remove(project);
    }
    CorvaneApp app;
    app.start({"https://a.example/given.fcpxml"});
    EXPECT_TRUE(shown().contains(line)) << "an address is no project: the session is restored";
    EXPECT_TRUE(QTest::qWaitFor([] { return !shown().filter("is an address and not a file").isEmpty(); }));
}

} // namespace
} // namespace corvane
