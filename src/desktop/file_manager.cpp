#include "desktop/file_manager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace corvane {

bool showInFileManager(const std::string& path)
{
    const QFileInfo file(QFile::decodeName(path.c_str()));
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        QDBusMessage show = QDBusMessage::createMethodCall(
            "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1",
            "ShowItems");
        show << QStringList(QUrl::fromLocalFile(file.absoluteFilePath()).toString()) << QString();
        constexpr int patience = 2000; // milliseconds
        if (bus.call(show, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage)
            return true;
    }
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absolutePath()));
}

} // namespace corvane
