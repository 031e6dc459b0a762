#include "workspace/window/controls/elided_label.h"

#include "workspace/window/tooltips.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace corvane {

ElidedLabel::ElidedLabel(const QString& text, QWidget* parent) : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setFacts(const QString& facts)
{
    facts_ = facts;
}

bool ElidedLabel::isElided() const
{
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

QSize ElidedLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    return {
        fontMetrics().horizontalAdvance(text()) + margins.left() + margins.right() + 1,
        fontMetrics().height() + margins.top() + margins.bottom()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {std::min(sizeHint().width(), fontMetrics().horizontalAdvance("Mmmm…")), sizeHint().height()};
}

/// The tooltip is made when it is asked for: the width and the text change more often than anyone looks.
bool ElidedLabel::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        QString tip = isElided() ? text() : QString();
        if (!facts_.isEmpty())
            tip += (tip.isEmpty() ? "" : "\n") + facts_;
        setTip(*this, tip);
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect place = contentsRect();
    style()->drawItemText(
        &painter, place, static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())), palette(),
        isEnabled(), shownText(place.width()), foregroundRole());
}

QString ElidedLabel::shownText(int width) const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, width);
}

} // namespace corvane
