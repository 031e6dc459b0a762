#include "workspace/window/mime_pasteboard.h"

#include "workspace/window/qt_text.h"

#include <QFile>
#include <QUrl>

namespace corvane {

namespace {

std::string pathOf(const QUrl& url)
{
    return QFile::encodeName(url.toLocalFile()).toStdString();
}

} // namespace

std::vector<std::string> MimePasteboard::types() const
{
    std::vector<std::string> types;
    for (const QString& format : data_.formats())
        types.push_back(utf8(format));
    if (!fileURLs().empty())
        types.emplace_back(fileURLPasteboardType);
    return types;
}

std::optional<std::string> MimePasteboard::data(const std::string& type) const
{
    if (!data_.hasFormat(qt(type)))
        return std::nullopt;
    return data_.data(qt(type)).toStdString();
}

std::vector<std::string> MimePasteboard::fileURLs() const
{
    std::vector<std::string> paths;
    for (const QUrl& url : data_.urls()) {
        if (url.isLocalFile())
            paths.push_back(pathOf(url));
    }
    return paths;
}

std::vector<std::string> MimePasteboard::locations() const
{
    std::vector<std::string> locations;
    for (const QUrl& url : data_.urls())
        locations.push_back(url.isLocalFile() ? pathOf(url) : utf8(url.toString()));
    return locations;
}

} // namespace corvane
