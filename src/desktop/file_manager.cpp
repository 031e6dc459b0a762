#include "desktop/file_manager.h"

#include "desktop/session_bus.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace corvane {

bool showInFileManager(const std::string& path)
{
    const QFileInfo file(QFile::decodeName(path.c_str()));
    if (showInFileManagerOnBus(file.absoluteFilePath()))
        return true;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absolutePath()));
}

} // namespace corvane
