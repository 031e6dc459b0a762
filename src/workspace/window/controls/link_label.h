#pragma once

#include <QLabel>
#include <QUrl>

namespace corvane {

/// One of the program's own links, which the system's browser opens. Works by mouse, by keyboard and by assistive
/// technology.
class LinkLabel : public QLabel {
    Q_OBJECT
public:
    LinkLabel(const QString& text, const QUrl& target, QWidget* parent = nullptr);

    void follow();

private:
    QUrl target_;
};

} // namespace corvane
