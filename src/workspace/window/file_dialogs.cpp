#include "workspace/window/file_dialogs.h"

#include "platform/error.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/tooltips.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QStyledItemDelegate>

namespace corvane {

namespace {

const std::string importFolderKey = "Corvane.window.lastImportFolder";
const std::string exportFolderKey = "Corvane.window.lastExportFolder";

bool isBundle(const QFileInfo& file)
{
    return file.isDir() && file.suffix().compare("fcpxmld", Qt::CaseInsensitive) == 0;
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

} // namespace

ProjectFileDialog::ProjectFileDialog(QWidget* parent) : QFileDialog(parent)
{
    setOption(DontUseNativeDialog); // the desktop's own choosers take either files or folders
    setFileMode(ExistingFile);
    setNameFilter(tr("Final Cut Pro XML (*.fcpxml *.fcpxmld)"));
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
    const auto chosen = ask(dialog, message);
    if (!chosen)
        return std::nullopt;
    const QString project = bundleOrFile(QFile::decodeName(chosen->c_str()));
    remember(importFolderKey, QFileInfo(project).absolutePath());
    return QFile::encodeName(project).toStdString();
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
    return ask(dialog, message);
}

void FileDialogs::rememberFolder(const std::string& folder)
{
    remember(exportFolderKey, QFile::decodeName(folder.c_str()));
}

void FileDialogs::prepare(QFileDialog& dialog)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog); // it shows the message, too
    dialog.setIconProvider(&icons_);                    // before it goes on with the folder that it began with
    auto* names = new ShownNames(&dialog);
    dialog.setItemDelegate(names);
    for (QAbstractItemView* list : dialog.findChildren<QAbstractItemView*>())
        escapeItemTips(*list);
    for (const QCompleter* completer : dialog.findChildren<QCompleter*>())
        completer->popup()->setItemDelegate(names);
    for (QComboBox* folders : dialog.findChildren<QComboBox*>()) {
        folders->setItemDelegate(names);
        escapeItemTips(*folders->view());
    }
}

std::optional<std::string> FileDialogs::ask(QFileDialog& dialog, const std::string& message)
{
    dialog.setWindowTitle("Corvane");
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
