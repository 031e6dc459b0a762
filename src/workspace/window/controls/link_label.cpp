#include "workspace/window/controls/link_label.h"

#include <QDesktopServices>

namespace corvane {

LinkLabel::LinkLabel(const QString& text, const QUrl& target, QWidget* parent) : QLabel(parent), target_(target)
{
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::TextBrowserInteraction);
    setText("<a href=\"" + target.toString().toHtmlEscaped() + "\">" + text.toHtmlEscaped() + "</a>");
    setAccessibleName(text);
    connect(this, &QLabel::linkActivated, this, &LinkLabel::follow);
}

void LinkLabel::follow()
{
    QDesktopServices::openUrl(target_);
}

} // namespace corvane
