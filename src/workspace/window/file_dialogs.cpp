#include "workspace/window/file_dialogs.h"

#include "base/error.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/tooltips.h"
#include "workspace/window/usual_places.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace corvane {

namespace {

const std::string importFolderKey = "Corvane.window.lastImportFolder";
const std::string exportFolderKey = "Corvane.window.lastExportFolder";
const std::string pictureFolderKey = "Corvane.window.lastPictureFolder";

bool isBundle(const QFileInfo& file)
{
    const QString path = QDir::cleanPath(file.absoluteFilePath()); // a typed name may end in "/"
    return file.isDir() && path.endsWith(".fcpxmld", Qt::CaseInsensitive);
}

/// Draws file names with marks for control characters.
class ShownNames : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override
    {
        return shown(utf8(QStyledItemDelegate::displayText(value, locale)));
    }
};

/// The bundle if the user chose the XML inside it; otherwise the chosen path.
QString bundleOrFile(const QString& chosen)
{
    const QFileInfo file(chosen);
    const QFileInfo folder(file.absolutePath());
    return file.fileName() == "Info.fcpxml" && isBundle(folder) ? folder.absoluteFilePath() : chosen;
}

/// Shows the list with columns, in a window wide enough for the last column, the dates, and for the names of the
/// places.
void showDates(QFileDialog& dialog)
{
    dialog.setViewMode(QFileDialog::Detail);
    if (const auto* list = dialog.findChild<QTreeView*>("treeView")) {
        list->header()->setStretchLastSection(false);
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    const int line = dialog.fontMetrics().height();
    if (auto* split = dialog.findChild<QSplitter*>("splitter"))
        split->setSizes({10 * line, 45 * line});
    dialog.resize(QSize(55 * line, 34 * line).boundedTo(dialog.screen()->availableSize() * 9 / 10));
}

/// Adds the usual places to those that the chooser already has. Because the chooser stores its places for all programs
/// of its toolkit, they are removed when it closes, except for what the user has changed.
class UsualPlaces {
public:
    explicit UsualPlaces(QFileDialog& dialog) : dialog_(dialog), added_(usualPlaces())
    {
        const QList<QUrl> before = dialog_.sidebarUrls();
        added_.removeIf([&before](const QUrl& place) { return before.contains(place); });
        dialog_.setSidebarUrls(before + added_);
    }
    UsualPlaces(const UsualPlaces&) = delete;
    UsualPlaces& operator=(const UsualPlaces&) = delete;
    ~UsualPlaces()
    {
        QList<QUrl> left = dialog_.sidebarUrls();
        left.removeIf([this](const QUrl& place) { return added_.contains(place); });
        dialog_.setSidebarUrls(left);
    }

private:
    QFileDialog& dialog_;
    QList<QUrl> added_;
};

} // namespace

ProjectFileDialog::ProjectFileDialog(QWidget* parent) : QFileDialog(parent)
{
    setOption(DontUseNativeDialog); // the desktop's own choosers accept either files or folders
    setFileMode(ExistingFile);
    setNameFilter(tr("Final Cut Pro XML (*.fcpxml *.fcpxmld)"));
    for (const char* name : {"listView", "treeView"}) {
        auto* list = findChild<QAbstractItemView*>(name);
        if (list == nullptr)
            continue;
        disconnect(list, &QAbstractItemView::activated, this, nullptr); // the toolkit would open any folder
        connect(
            list, &QAbstractItemView::activated, this, [this, list](const QModelIndex& item) { enter(*list, item); });
    }
}

void ProjectFileDialog::enter(QAbstractItemView& list, const QModelIndex& item)
{
    const QString path = item.data(QFileSystemModel::FilePathRole).toString();
    const QFileInfo file(path);
    if (path.isEmpty() || (file.isDir() && !isBundle(file))) {
        setDirectory(path);
        emit directoryEntered(path);
    } else if (item.flags().testFlag(Qt::ItemIsEnabled)) {
        list.setCurrentIndex(item);
        accept();
    }
}

void ProjectFileDialog::accept()
{
    const QStringList chosen = selectedFiles();
    if (chosen.size() == 1 && isBundle(QFileInfo(chosen.front())))
        QDialog::accept(); // NOLINT(bugprone-parent-virtual-call): bypasses the chooser, which would open the folder
    else
        QFileDialog::accept();
}

std::optional<std::string> FileDialogs::chooseProject(const std::string& message)
{
    ProjectFileDialog dialog(parent_);
    prepare(dialog);
    dialog.setDirectory(lastFolder(importFolderKey, ""));
    const auto chosen = ask(dialog, QObject::tr("Import Final Cut XML"), message);
    if (!chosen)
        return std::nullopt;
    return QFile::encodeName(bundleOrFile(QFile::decodeName(chosen->c_str()))).toStdString();
}

std::optional<std::string> FileDialogs::chooseFolder(
    const std::string& prompt, const std::string& message, const std::string& firstFolder)
{
    QFileDialog dialog(parent_);
    prepare(dialog);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, qt(prompt));
    dialog.setDirectory(lastFolder(exportFolderKey, firstFolder));
    return ask(dialog, QObject::tr("Export to Final Cut"), message);
}

void FileDialogs::rememberProject(const std::string& location)
{
    const QString project = QDir::cleanPath(QFile::decodeName(location.c_str())); // a bundle's path may end in "/"
    remember(importFolderKey, QFileInfo(bundleOrFile(project)).absolutePath());
}

void FileDialogs::rememberFolder(const std::string& folder)
{
    remember(exportFolderKey, QFile::decodeName(folder.c_str()));
}

/// Nothing is ever replaced, so the chooser does not ask whether to.
std::optional<std::string> FileDialogs::chooseNewFile(
    const std::string& title, const std::string& message, const std::string& name)
{
    QFileDialog dialog(parent_);
    prepare(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDirectory(lastFolder(
        pictureFolderKey,
        QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).toStdString()));
    dialog.selectFile(QFile::decodeName(name.c_str()));
    return ask(dialog, qt(title), message);
}

void FileDialogs::rememberNewFile(const std::string& path)
{
    remember(pictureFolderKey, QFileInfo(QFile::decodeName(path.c_str())).absolutePath());
}

void FileDialogs::prepare(QFileDialog& dialog)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog); // so that it shows the message
    dialog.setIconProvider(&icons_);                    // before it reads its first folder
    showDates(dialog);
    for (const char* name : {"listView", "treeView"}) { // one delegate each, because the toolkit does not allow sharing
        if (auto* list = dialog.findChild<QAbstractItemView*>(name))
            list->setItemDelegate(new ShownNames(list));
    }
    for (QAbstractItemView* list : dialog.findChildren<QAbstractItemView*>())
        escapeItemTips(*list);
    for (const QCompleter* completer : dialog.findChildren<QCompleter*>())
        completer->popup()->setItemDelegate(new ShownNames(completer->popup()));
    for (QComboBox* folders : dialog.findChildren<QComboBox*>()) {
        folders->setItemDelegate(new ShownNames(folders));
        escapeItemTips(*folders->view());
    }
}

std::optional<std::string> FileDialogs::ask(QFileDialog& dialog, const QString& title, const std::string& message)
{
    const UsualPlaces places(dialog);
    dialog.setWindowTitle(title);
    if (auto* grid = qobject_cast<QGridLayout*>(dialog.layout())) {
        auto* label = new QLabel(qt(message), &dialog);
        label->setWordWrap(true);
        grid->addWidget(label, grid->rowCount(), 0, 1, -1);
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().size() != 1)
        return std::nullopt;
    return QFile::encodeName(dialog.selectedFiles().front()).toStdString();
}

QString FileDialogs::lastFolder(const std::string& key, const std::string& otherwise) const
{
    std::string folder;
    try {
        folder = defaults_.value(key);
    } catch (const PlatformError&) {
        folder.clear(); // failing to remember the last folder is no reason to refuse
    }
    for (const std::string& each : {folder, otherwise}) {
        QString path = QFile::decodeName(each.c_str());
        if (!path.isEmpty() && QDir(path).exists()) // otherwise the chooser would open in the current directory
            return path;
    }
    return QDir::homePath();
}

void FileDialogs::remember(const std::string& key, const QString& folder)
{
    try {
        defaults_.setValue(key, QFile::encodeName(folder).toStdString());
    } catch (const PlatformError&) {
        return; // not serious: the next chooser opens elsewhere
    }
}

} // namespace corvane
