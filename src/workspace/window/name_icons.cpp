#include "workspace/window/name_icons.h"

#include <QApplication>
#include <QFileInfo>
#include <QStyle>

namespace corvane {

namespace {

QIcon standard(QStyle::StandardPixmap picture)
{
    return QApplication::style()->standardIcon(picture);
}

bool isBundle(const QFileInfo& file)
{
    return file.suffix().compare("fcpxmld", Qt::CaseInsensitive) == 0;
}

} // namespace

NameIcons::NameIcons()
    : folder_(standard(QStyle::SP_DirIcon)),
      file_(standard(QStyle::SP_FileIcon)),
      drive_(standard(QStyle::SP_DriveHDIcon)),
      computer_(standard(QStyle::SP_ComputerIcon))
{
}

QIcon NameIcons::icon(IconType type) const
{
    switch (type) {
    case Computer:
        return computer_;
    case Network:
    case Drive:
        return drive_;
    case File:
        return file_;
    default:
        return folder_;
    }
}

QIcon NameIcons::icon(const QFileInfo& file) const
{
    return file.isRoot() ? drive_ : file.isDir() && !isBundle(file) ? folder_ : file_;
}

QString NameIcons::type(const QFileInfo& file) const
{
    return file.isDir() && !isBundle(file) ? QObject::tr("Folder") : QObject::tr("File");
}

} // namespace corvane
