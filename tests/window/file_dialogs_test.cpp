#include "gui.h"
#include "support/opened_files.h"
#include "workspace/window/file_dialogs.h"
#include "workspace/window/usual_places.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QHelpEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QToolTip>
#include <QTreeView>
#include <filesystem>
#include <fstream>
#include <set>

namespace corvane {
namespace {

using namespace test;

/// Types the name into the open chooser and presses its button; an empty name is Escape. Remembers where it opened.
class Person {
public:
    using Look = std::function<void(QFileDialog&)>;

    explicit Person(QString name, Look look = [](QFileDialog&) {}) : name_(std::move(name)), look_(std::move(look))
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
        look_(*dialog);
        if (!dialog->isVisible())
            return; // answered already
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
    Look look_;
    QObject timer_;
};

/// The item in the folder that is shown, once it is there.
QModelIndex itemNamed(const QAbstractItemView& list, const QString& name)
{
    QModelIndexList found;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QModelIndex root = list.rootIndex();
        found = list.model()->match(list.model()->index(0, 0, root), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        return !found.isEmpty();
    })) << utf8(name);
    return found.value(0);
}

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
        Person person("");
        EXPECT_EQ(dialogs.chooseProject("Choose."), std::nullopt);
        EXPECT_EQ(person.openedAt, QDir::homePath()) << "none was loaded";
    }
    dialogs.rememberProject(bundle + "/");
    {
        Person person("Plain.fcpxml");
        EXPECT_EQ(dialogs.chooseProject("Choose."), folder + "/Plain.fcpxml");
        EXPECT_EQ(utf8(person.openedAt), folder) << "beside the last project that was loaded";
    }
    {
        Person person(qt(bundle + "/Info.fcpxml"));
        EXPECT_EQ(dialogs.chooseProject("Choose."), bundle) << "who chooses the XML inside means the bundle";
    }
    Person person("");
    EXPECT_EQ(dialogs.chooseProject("Choose."), std::nullopt);
}

TEST(FileDialogs, ChooseABundleByADoubleClickAndByReturnAndGoIntoOtherFolders)
{
    const ScratchFolder scratch;
    std::filesystem::create_directories(scratch.file("projects/Concert.fcpxmld"));
    MemoryDefaults defaults;
    FileDialogs dialogs(defaults);
    dialogs.rememberProject(scratch.file("any.fcpxml"));
    for (const auto mode : {QFileDialog::List, QFileDialog::Detail}) {
        const auto look = [mode](QFileDialog& dialog) {
            dialog.setViewMode(mode);
            auto* list = dialog.findChild<QAbstractItemView*>(mode == QFileDialog::List ? "listView" : "treeView");
            for (const char* folder : {"projects", "Concert.fcpxmld"}) {
                const QModelIndex item = itemNamed(*list, folder);
                list->setCurrentIndex(item);
                const QPoint place = list->visualRect(item).center();
                if (mode == QFileDialog::List) {
                    QTest::keyClick(list, Qt::Key_Return);
                } else {
                    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
                    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
                }
            }
        };
        Person person("", look);
        EXPECT_EQ(dialogs.chooseProject("Choose."), scratch.file("projects/Concert.fcpxmld"));
    }
}

TEST(FileDialogs, ShowDatesAndTheUsualPlacesAndLeaveThePlacesOfOtherProgramsAlone)
{
    const ScratchFolder scratch;
    std::filesystem::create_directory(scratch.file("Downloads"));
    const QUrl downloads = QUrl::fromLocalFile(qt(scratch.file("Downloads")));
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QByteArray::fromStdString(scratch.file(".")));
    MemoryDefaults defaults;
    FileDialogs dialogs(defaults);
    ProjectFileDialog(nullptr).setViewMode(QFileDialog::List); // as another program may have left it
    const auto look = [&downloads](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Import Final Cut XML");
        EXPECT_TRUE(dialog.sidebarUrls().contains(downloads));
        EXPECT_EQ(dialog.viewMode(), QFileDialog::Detail);
        const auto* list = dialog.findChild<QTreeView*>("treeView");
        (void)itemNamed(*list, "Downloads");
        const int dates = list->model()->columnCount() - 1;
        EXPECT_GE(list->columnWidth(dates), static_cast<const QAbstractItemView*>(list)->sizeHintForColumn(dates));
        EXPECT_LE(list->columnViewportPosition(dates) + list->columnWidth(dates), list->viewport()->width());
    };
    {
        Person person("", look);
        EXPECT_EQ(dialogs.chooseProject("Choose."), std::nullopt);
    }
    EXPECT_FALSE(ProjectFileDialog(nullptr).sidebarUrls().contains(downloads));
    qputenv("HOME", home);
    for (const char* mount : {"/media/anna/STICK", "/run/media/anna/STICK", "/mnt/share", "/srv/recordings"})
        EXPECT_TRUE(isMountForPeople(mount, "/home/anna")) << mount;
    for (const char* mount : {"/", "/home", "/home/anna", "/boot/efi", "/run/user/1000/doc"})
        EXPECT_FALSE(isMountForPeople(mount, "/home/anna")) << mount;
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
    for (const bool exported : {false, true}) {
        if (exported)
            dialogs.rememberFolder(scratch.file("exports"));
        Person person("");
        EXPECT_EQ(dialogs.chooseFolder("Export", "Choose.", scratch.file("source")), std::nullopt);
        EXPECT_EQ(utf8(person.openedAt), scratch.file(exported ? "exports" : "source")) << "where one succeeded";
    }
}

TEST(FileDialogs, OpenNoFileToShowItAndDrawNamesWithMarks)
{
    const ScratchFolder scratch;
    const std::string folder = scratch.file("<b>folder");
    std::filesystem::create_directories(folder + "/\u202Ex\ny");
    for (const char* name : {"page.fcpxml", "unknown", "picture.png"})
        std::ofstream(folder + "/" + name) << "<html>";
    MemoryDefaults defaults;
    FileDialogs dialogs(defaults);
    OpenedFiles opened(folder);
    const auto look = [](QFileDialog& dialog) {
        auto* list = dialog.findChild<QListView*>("listView");
        QVariant name;
        ASSERT_TRUE(QTest::qWaitFor([list, &name] { // in whatever order the files come
            for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
                if (name = list->model()->index(row, 0, list->rootIndex()).data();
                    name.toString().startsWith(u'\u202E'))
                    return true;
            return false;
        }));
        EXPECT_EQ(dynamic_cast<QStyledItemDelegate&>(*list->itemDelegate()).displayText(name, {}), "⇇x↵y");
        std::set<QAbstractItemDelegate*> delegates;
        for (const auto* view : dialog.findChildren<QAbstractItemView*>())
            EXPECT_TRUE(delegates.insert(view->itemDelegate()).second) << utf8(view->objectName());
        dialog.setSidebarUrls({QUrl::fromLocalFile(dialog.directory().path())});
        auto* places = dialog.findChild<QListView*>("sidebar");
        QHelpEvent event(QEvent::ToolTip, places->visualRect(places->model()->index(0, 0)).center(), QPoint(1, 1));
        QApplication::sendEvent(places->viewport(), &event);
        EXPECT_TRUE(QToolTip::text().contains("&lt;b&gt;folder")) << utf8(QToolTip::text());
    };
    const auto before = std::filesystem::current_path();
    for (const std::string& start : {before.string(), folder}) { // where the chooser begins before it is told
        std::filesystem::current_path(start);
        Person exporter("", look);
        EXPECT_EQ(dialogs.chooseFolder("Export", "Choose.", folder), std::nullopt);
        defaults.values["Corvane.window.lastImportFolder"] = folder;
        Person importer("", look);
        EXPECT_EQ(dialogs.chooseProject("Choose."), std::nullopt);
    }
    std::filesystem::current_path(before);
    EXPECT_EQ(opened.names(), "");
}

} // namespace
} // namespace corvane
