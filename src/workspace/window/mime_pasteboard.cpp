#include "workspace/window/mime_pasteboard.h"

#include "workspace/window/qt_text.h"

#include <QElapsedTimer>
#include <QFile>

namespace corvane {

namespace {

const char* const uriList = "text/uri-list";

std::string pathOf(const QUrl& url)
{
    return QFile::encodeName(url.toLocalFile()).toStdString();
}

} // namespace

/// If the source does not answer within some seconds, the toolkit returns no data, which looks like an empty answer. So
/// an empty answer that took long counts as none: no program needs that long to say that it has nothing.
template <class Answer, class Question>
Answer MimePasteboard::ask(const Question& question) const
{
    constexpr qint64 soon = 500; // milliseconds
    if (silent_)
        throw NoPasteboardAnswer();
    QElapsedTimer waiting;
    waiting.start();
    Answer answer = question();
    silent_ = answer.isEmpty() && waiting.elapsed() > soon;
    if (silent_)
        throw NoPasteboardAnswer();
    return answer;
}

const QList<QUrl>& MimePasteboard::urls() const
{
    if (!urls_)
        urls_ = data_.hasFormat(uriList) ? ask<QList<QUrl>>([this] { return data_.urls(); }) : QList<QUrl>();
    return *urls_;
}

std::vector<std::string> MimePasteboard::types() const
{
    std::vector<std::string> types;
    for (const QString& format : data_.formats())
        types.push_back(utf8(format));
    if (data_.hasFormat(uriList))
        types.emplace_back(fileURLPasteboardType);
    return types;
}

std::optional<std::string> MimePasteboard::data(const std::string& type) const
{
    if (!data_.hasFormat(qt(type)))
        return std::nullopt;
    if (!answers_.contains(type))
        answers_[type] = ask<QByteArray>([&] { return data_.data(qt(type)); }).toStdString();
    return answers_.at(type);
}

std::vector<std::string> MimePasteboard::filePaths() const
{
    std::vector<std::string> paths;
    for (const QUrl& url : urls()) {
        if (url.isLocalFile())
            paths.push_back(pathOf(url));
    }
    return paths;
}

std::vector<std::string> MimePasteboard::locations() const
{
    std::vector<std::string> locations;
    for (const QUrl& url : urls())
        locations.push_back(url.isLocalFile() ? pathOf(url) : utf8(url.toString()));
    return locations;
}

} // namespace corvane
