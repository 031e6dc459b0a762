#include "desktop/given_location.h"

#include "base/file_url.h"

#include <QFile>
#include <QUrl>

namespace corvane {

std::optional<std::string> pathOfURI(const std::string& uri)
{
    if (auto path = pathOfFileURL(uri))
        return path;
    const QUrl url(QString::fromStdString(uri));
    return url.isLocalFile() ? std::optional(QFile::encodeName(url.toLocalFile()).toStdString()) : std::nullopt;
}

} // namespace corvane
