#include "gui.h"
#include "workspace/window/file_dialogs.h"
#include "workspace/window/usual_places.h"

#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QTreeView>
#include <filesystem>
#include <fstream>
#include <set>

namespace corvane {
namespace {

using namespace test;

using Look = std::function<void(QFileDialog&)>;

/// Where a chooser opened, the button that was pressed, and what it gave.
struct Visit {
    QString openedAt, button;
    std::optional<std::string> chosen;
};

/// Looks at the chooser that is opened, types the name into it and presses its button; an empty name is Escape.
Visit visited(const std::function<std::optional<std::string>()>& open, const QString& name, const Look& look)
{
    Visit visit;
    QObject timer;
    QTimer::singleShot(0, &timer, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        visit.openedAt = dialog->directory().absolutePath();
        look(*dialog);
        if (dialog->isVisible() && name.isEmpty())
            QTest::keyClick(dialog, Qt::Key_Escape);
        if (!dialog->isVisible())
            return;
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name);
        for (QPushButton* each : dialog->findChildren<QDialogButtonBox*>().front()->findChildren<QPushButton*>()) {
            if (readText(each->text()) != "Cancel") {
                visit.button = readText(each->text());
                QTest::mouseClick(each, Qt::LeftButton);
            }
        }
    });
    visit.chosen = open();
    return visit;
}

struct Choosers {
    const ScratchFolder scratch;
    MemoryDefaults defaults;
    FileDialogs dialogs{defaults};

    Visit project(const QString& name = "", const Look& look = [](auto&) {})
    {
        return visited([&] { return dialogs.chooseProject("Choose."); }, name, look);
    }
    Visit folder(const std::string& first, const QString& name = "", const Look& look = [](auto&) {})
    {
        return visited([&] { return dialogs.chooseFolder("Export", "Choose.", first); }, name, look);
    }
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
    Choosers choosers;
    const std::string folder = choosers.scratch.file("projects"), bundle = folder + "/Concert.fcpxmld";
    std::filesystem::create_directories(bundle);
    std::ofstream(bundle + "/Info.fcpxml") << document();
    std::ofstream(folder + "/Plain.fcpxml") << document();
    EXPECT_EQ(choosers.project(qt(bundle)).chosen, bundle) << "by its Open button, not looked into";
    EXPECT_EQ(choosers.project().openedAt, QDir::homePath()) << "none was loaded";
    choosers.dialogs.rememberProject(bundle + "/");
    const Visit plain = choosers.project("Plain.fcpxml");
    EXPECT_EQ(plain.chosen, folder + "/Plain.fcpxml");
    EXPECT_EQ(utf8(plain.openedAt), folder) << "beside the last project that was loaded";
    EXPECT_EQ(choosers.project(qt(bundle + "/Info.fcpxml")).chosen, bundle) << "who chooses the XML inside means it";
}

TEST(FileDialogs, ChooseABundleByADoubleClickAndByReturnAndGoIntoOtherFolders)
{
    Choosers choosers;
    std::filesystem::create_directories(choosers.scratch.file("projects/Concert.fcpxmld"));
    choosers.dialogs.rememberProject(choosers.scratch.file("any.fcpxml"));
    for (const auto mode : {QFileDialog::List, QFileDialog::Detail}) {
        const Visit visit = choosers.project("", [mode](QFileDialog& dialog) {
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
        });
        EXPECT_EQ(visit.chosen, choosers.scratch.file("projects/Concert.fcpxmld"));
    }
}

TEST(FileDialogs, ShowDatesAndTheUsualPlacesAndLeaveThePlacesOfOtherProgramsAlone)
{
    Choosers choosers;
    std::filesystem::create_directory(choosers.scratch.file("Downloads"));
    const QUrl downloads = QUrl::fromLocalFile(qt(choosers.scratch.file("Downloads")));
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QByteArray::fromStdString(choosers.scratch.file(".")));
    const Visit picture =
        visited([&choosers] { return choosers.dialogs.chooseNewFile("Save", "Choose.", "a.html"); }, "", [](auto&) {});
    EXPECT_EQ(picture.openedAt, QDir::homePath()) << "there is no folder for documents";
    ProjectFileDialog(nullptr).setViewMode(QFileDialog::List); // as another program may have left it
    choosers.project("", [&downloads](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Import Final Cut XML");
        EXPECT_TRUE(dialog.sidebarUrls().contains(downloads));
        EXPECT_EQ(dialog.viewMode(), QFileDialog::Detail);
        const auto* list = dialog.findChild<QTreeView*>("treeView");
        (void)itemNamed(*list, "Downloads");
        const int dates = list->model()->columnCount() - 1;
        EXPECT_GE(list->columnWidth(dates), static_cast<const QAbstractItemView*>(list)->sizeHintForColumn(dates));
        EXPECT_LE(list->columnViewportPosition(dates) + list->columnWidth(dates), list->viewport()->width());
    });
    EXPECT_FALSE(ProjectFileDialog(nullptr).sidebarUrls().contains(downloads));
    qputenv("HOME", home);
    for (const char* mount : {"/media/anna/STICK", "/run/media/anna/STICK", "/mnt/share", "/srv/recordings"})
        EXPECT_TRUE(isMountForPeople(mount, "/home/anna")) << mount;
    for (const char* mount : {"/", "/home", "/home/anna", "/boot/efi", "/run/user/1000/doc"})
        EXPECT_FALSE(isMountForPeople(mount, "/home/anna")) << mount;
}

TEST(FileDialogs, ProposeTheFolderBesideTheSourceForTheFirstExportOnly)
{
    Choosers choosers;
    const std::string source = choosers.scratch.file("source"), exports = choosers.scratch.file("exports");
    for (const std::string& folder : {source, exports})
        std::filesystem::create_directory(folder);
    const Visit first = choosers.folder(source, qt(exports));
    EXPECT_EQ(first.chosen, exports);
    EXPECT_EQ(first.button, "Export");
    EXPECT_EQ(utf8(choosers.folder(source).openedAt), source) << "nothing was exported";
    choosers.dialogs.rememberFolder(exports);
    EXPECT_EQ(utf8(choosers.folder(source).openedAt), exports);
}

TEST(FileDialogs, OpenNoFileToShowItAndDrawNamesWithMarks)
{
    Choosers choosers;
    const std::string folder = choosers.scratch.file("<b>folder");
    std::filesystem::create_directories(folder + "/\u202Ex\ny");
    for (const char* name : {"shown.fcpxml", "shown", "shown.png"}) // the privacy test sees that none is opened
        std::ofstream(folder + "/" + name) << "<html>";
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
        const QString tip = tipAt(*places->viewport(), places->visualRect(places->model()->index(0, 0)).center());
        EXPECT_TRUE(tip.contains("&lt;b&gt;folder")) << utf8(tip);
    };
    const auto before = std::filesystem::current_path();
    for (const std::string& start : {before.string(), folder}) { // where the chooser begins before it is told
        std::filesystem::current_path(start);
        choosers.folder(folder, "", look);
        choosers.defaults.values["Corvane.window.lastImportFolder"] = folder;
        choosers.project("", look);
    }
    std::filesystem::current_path(before);
}

} // namespace
} // namespace corvane
