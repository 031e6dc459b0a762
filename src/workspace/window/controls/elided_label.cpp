#include "workspace/window/controls/elided_label.h"

#include "workspace/window/qt_text.h"
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

void ElidedLabel::setFacts(std::vector<std::string> lines)
{
    facts_ = std::move(lines);
}

void ElidedLabel::setName(const NamePlace& name)
{
    name_ = name;
    update();
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

/// The tooltip is made only when it is needed, because the width and the text change far more often.
bool ElidedLabel::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        std::vector<std::string> lines = facts_;
        constexpr std::size_t most = 40; // lines, which fit on a screen
        if (lines.size() > most) {
            lines.resize(most);
            lines.emplace_back("…");
        }
        if (isElided())
            lines.insert(lines.begin(), utf8(accessibleName().isEmpty() ? text() : accessibleName()));
        setTip(*this, lines);
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
    return name_ ? elided(fontMetrics(), text(), width, *name_)
                 : fontMetrics().elidedText(text(), Qt::ElideRight, width);
}

} // namespace corvane
