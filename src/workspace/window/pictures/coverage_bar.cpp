#include "workspace/window/pictures/coverage_bar.h"

#include "workspace/window/pictures/time_axis.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

namespace corvane {

CoverageBar::CoverageBar(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(fontMetrics().height() + 1);
    setMinimumWidth(60);
    setProperty("picture", true);
}

void CoverageBar::show(const Content& content)
{
    if (content_ == content)
        return;
    content_ = content;
    setAccessibleDescription(content.words);
    update();
}

void CoverageBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), theme::fieldGrey);
    const TimeScale scale(content_.length, 0, width());
    QRectF lettered;
    for (const FrameRange& stretch : content_.stretches) {
        const double left = scale.x(stretch.start);
        const double right = std::max(scale.x(stretch.end), left + 1); // even a single frame of footage is visible
        const QRectF piece(left, 2, right - left, height() - 4);
        painter.fillRect(piece, content_.color);
        constexpr double roomForLetter = 18;
        if (lettered.isNull() && piece.width() > roomForLetter)
            lettered = piece;
    }
    if (lettered.isNull())
        return;
    QFont letters = font();
    letters.setBold(true);
    painter.setFont(letters);
    painter.setPen(QColor(0x16, 0x16, 0x16));
    painter.drawText(lettered.adjusted(5, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, content_.letter);
}

bool CoverageBar::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setTip(*this, accessibleDescription());
    return QWidget::event(event);
}

} // namespace corvane
