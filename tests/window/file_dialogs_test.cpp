#include "gui.h"
#include "workspace/window/file_dialogs.h"

#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <fstream>

namespace corvane {
namespace {

using namespace test;

/// Types the name into the open chooser and presses its button; an empty name is Escape. Remembers where it opened.
class Person {
public:
    explicit Person(QString name) : name_(std::move(name))
    {
        QTimer::singleShot(0, &timer_, [this] { answer(); });
    }

    QString openedAt;
    QString button;

private:
    void answer()
    {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        openedAt = dialog->directory().absolutePath();
        if (name_.isEmpty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        auto* field = dialog->findChild<QLineEdit*>("fileNameEdit");
        field->setText(name_);
        for (QPushButton* each : dialog->findChildren<QDialogButtonBox*>().front()->findChildren<QPushButton*>()) {
            if (readText(each->text()) != "Cancel") {
                button = readText(each->text());
                QTest::mouseClick(each, Qt::LeftButton);
            }
        }
    }

    QString name_;
    QObject timer_;
};

TEST(FileDialogs, TakeABundleWholeAndRememberTheFolder)
{
    const ScratchFolder scratch;
    const std::string folder = scratch.file("projects");
    const std::string bundle = folder + "/Concert.fcpxmld";
    std::filesystem::create_directories(bundle);
    std::ofstream(bundle + "/Info.fcpxml") << document();
    std::ofstream(folder + "/Plain.fcpxml") << document();
    MemoryDefaults defaults;
    FileDialogs dialogs(defaults);
    {
        Person person(qt(bundle));
        EXPECT_EQ(dialogs.chooseProject("Choose."), bundle) << "by its Open button, not looked into";
        EXPECT_EQ(person.openedAt, QDir::homePath());
    }
    {
        Person person("Plain.fcpxml");
        EXPECT_EQ(dialogs.chooseProject("Choose."), folder + "/Plain.fcpxml");
        EXPECT_EQ(utf8(person.openedAt), folder) << "where the last project was";
    }
    {
        Person person(qt(bundle + "/Info.fcpxml"));
        EXPECT_EQ(dialogs.chooseProject("Choose."), bundle) << "who chooses the XML inside means the bundle";
    }
    Person person("");
    EXPECT_EQ(dialogs.chooseProject("Choose."), std::nullopt);
}

TEST(FileDialogs, ProposeTheFolderBesideTheSourceForTheFirstExportOnly)
{
    const ScratchFolder scratch;
    for (const char* name : {"source", "exports"})
        std::filesystem::create_directory(scratch.file(name));
    MemoryDefaults defaults;
    FileDialogs dialogs(defaults);
    {
        Person person(qt(scratch.file("exports")));
        EXPECT_EQ(dialogs.chooseFolder("Export", "Choose.", scratch.file("source")), scratch.file("exports"));
        EXPECT_EQ(utf8(person.openedAt), scratch.file("source"));
        EXPECT_EQ(person.button, "Export");
    }
    Person person("");
    EXPECT_EQ(dialogs.chooseFolder("Export", "Choose.", scratch.file("source")), std::nullopt);
    EXPECT_EQ(utf8(person.openedAt), scratch.file("exports"));
}

} // namespace
} // namespace corvane
