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
#include <QStyledItemDelegate>
#include <QTreeView>

namespace corvane {

namespace {

const std::string importFolderKey = "Corvane.window.lastImportFolder";
const std::string exportFolderKey = "Corvane.window.lastExportFolder";

bool isBundle(const QFileInfo& file)
{
    const QString path = QDir::cleanPath(file.absoluteFilePath()); // a name that was typed may end in "/"
    return file.isDir() && path.endsWith(".fcpxmld", Qt::CaseInsensitive);
}

/// Draws the names of files.
class ShownNames : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override
    {
        return shown(utf8(QStyledItemDelegate::displayText(value, locale)));
    }
};

/// Whoever looks into a bundle and chooses the XML inside means the bundle.
QString bundleOrFile(const QString& chosen)
{
    const QFileInfo file(chosen);
    const QFileInfo folder(file.absolutePath());
    return file.fileName() == "Info.fcpxml" && isBundle(folder) ? folder.absoluteFilePath() : chosen;
}

/// The list with its columns, in a window wide enough for the last of them, which are the dates, and for the names of
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

/// The usual places, beside those that the chooser has already. It stores what it shows for every program of its
/// toolkit: when it closes they go, but for what the user has changed.
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
    setOption(DontUseNativeDialog); // the desktop's own choosers take either files or folders
    setFileMode(ExistingFile);
    setNameFilter(tr("Final Cut Pro XML (*.fcpxml *.fcpxmld)"));
    for (const char* name : {"listView", "treeView"}) {
        auto* list = findChild<QAbstractItemView*>(name);
        if (list == nullptr)
            continue;
        disconnect(list, &QAbstractItemView::activated, this, nullptr); // the toolkit goes into every folder
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
        QDialog::accept(); // NOLINT(bugprone-parent-virtual-call): past the chooser, which would look into the folder
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
    const QString project = QDir::cleanPath(QFile::decodeName(location.c_str())); // of a bundle it may end in "/"
    remember(importFolderKey, QFileInfo(bundleOrFile(project)).absolutePath());
}

void FileDialogs::rememberFolder(const std::string& folder)
{
    remember(exportFolderKey, QFile::decodeName(folder.c_str()));
}

void FileDialogs::prepare(QFileDialog& dialog)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog); // it shows the message, too
    dialog.setIconProvider(&icons_);                    // before it goes on with the folder that it began with
    showDates(dialog);
    for (const char* name : {"listView", "treeView"}) { // a delegate each: the toolkit wants none shared
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
        folder.clear(); // where the last time was is no reason to refuse this time
    }
    QString last = QFile::decodeName(folder.c_str());
    if (!last.isEmpty() && QDir(last).exists())
        return last;
    return otherwise.empty() ? QDir::homePath() : QFile::decodeName(otherwise.c_str());
}

void FileDialogs::remember(const std::string& key, const QString& folder)
{
    try {
        defaults_.setValue(key, QFile::encodeName(folder).toStdString());
    } catch (const PlatformError&) {
        return; // the next chooser opens elsewhere; nothing of the work depends on it
    }
}

} // namespace corvane
