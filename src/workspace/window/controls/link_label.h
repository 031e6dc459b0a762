#pragma once

#include <QLabel>
#include <QUrl>

namespace corvane {

/// A link of the program's own, which the system's browser opens: by mouse, by keyboard and by assistive technology.
class LinkLabel : public QLabel {
    Q_OBJECT
public:
    LinkLabel(const QString& text, const QUrl& target, QWidget* parent = nullptr);

    void follow();

private:
    QUrl target_;
};

} // namespace corvane
