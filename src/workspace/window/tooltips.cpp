#include "workspace/window/tooltips.h"

#include <QToolTip>

namespace corvane {

QString tip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

/// Without a description, assistive technology would read the tooltip's markup.
void setTip(QWidget& widget, const QString& text)
{
    widget.setToolTip(tip(text));
    if (widget.accessibleDescription() != text)
        widget.setAccessibleDescription(text);
}

void showTip(const QPoint& place, const QString& text, QWidget& over)
{
    QToolTip::showText(place, tip(text), &over);
}

void hideTip()
{
    QToolTip::hideText();
}

} // namespace corvane
