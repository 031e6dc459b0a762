#include "workspace/window/pictures/coverage_bar.h"

#include "workspace/captions.h"
#include "workspace/window/pictures/time_axis.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

namespace corvane {

CoverageBar::CoverageBar(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(fontMetrics().height() + 2);
    setMinimumWidth(60);
    setProperty("picture", true);
}

void CoverageBar::show(
    const CutEngine& engine, const std::vector<FrameRange>& stretches, const QColor& color, const QString& letter)
{
    if (length_ == engine.length && stretches_ == stretches && color_ == color && letter_ == letter)
        return;
    length_ = engine.length;
    stretches_ = stretches;
    color_ = color;
    letter_ = letter;
    setAccessibleDescription(qt(stretchesInWords(engine, stretches)));
    update();
}

void CoverageBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), theme::fieldGrey);
    const TimeScale scale(length_, 0, width());
    QRectF lettered;
    for (const FrameRange& stretch : stretches_) {
        const double left = scale.x(stretch.start);
        const double right = std::max(scale.x(stretch.end), left + 1); // a frame of footage is seen, too
        const QRectF piece(left, 2, right - left, height() - 4);
        painter.fillRect(piece, color_);
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
    painter.drawText(lettered.adjusted(5, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, letter_);
}

bool CoverageBar::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setToolTip(accessibleDescription());
    return QWidget::event(event);
}

} // namespace corvane
