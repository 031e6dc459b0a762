#include "workspace/window/pictures/time_axis.h"

#include "timecode/timecode.h"
#include "workspace/captions.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace corvane {

namespace {

constexpr int ticksHeight = 20;
constexpr int namesHeight = 15;

/// Paints a name only if the previous one leaves room for it, and elides it before the next marker.
void paintMarkers(
    QPainter& painter, const QRectF& place, const TimeScale& scale, const std::vector<ClipMarker>& markers)
{
    constexpr double narrowest = 24;
    double free = place.left();
    for (std::size_t i = 0; i < markers.size(); ++i) {
        const double x = scale.x(markers[i].frame);
        painter.setPen(QPen(theme::orange, 1));
        painter.drawLine(QPointF(x, place.top() + 2), QPointF(x, place.top() + namesHeight));
        painter.drawLine(QPointF(x, place.bottom() - 4), QPointF(x, place.bottom())); // not across the timecodes
        const double next = i + 1 < markers.size() ? scale.x(markers[i + 1].frame) : place.right();
        const double room = std::max(next, x + narrowest) - x - 6;
        if (x < free || x + narrowest > place.right())
            continue;
        const QString name =
            painter.fontMetrics().elidedText(shown(markers[i].name), Qt::ElideRight, static_cast<int>(room));
        painter.setPen(theme::warmWhite);
        painter.drawText(QRectF(x + 3, place.top(), room + 2, namesHeight), Qt::AlignLeft | Qt::AlignVCenter, name);
        free = x + 3 + painter.fontMetrics().horizontalAdvance(name);
    }
}

} // namespace

Frames TimeScale::frame(double x) const
{
    if (!(width_ > 0))
        return 0;
    const double frame = std::floor((x - left_) / width_ * static_cast<double>(length_));
    return static_cast<Frames>(std::clamp(frame, 0.0, static_cast<double>(length_ - 1)));
}

std::vector<Frames> tickFrames(const CutEngine& engine, double width, double labelWidth)
{
    constexpr std::array<std::int64_t, 17> steps = {1,   2,   5,    10,   15,   30,    60,    120,  300,
                                                    600, 900, 1800, 3600, 7200, 14400, 28800, 86400};
    const double seconds = engine.seconds(engine.length);
    constexpr double space = 14;
    const auto fits = [&](std::int64_t step) {
        return static_cast<double>(step) / seconds * width >= labelWidth + space;
    };
    const auto step = std::ranges::find_if(steps, fits);
    return step == steps.end() ? std::vector<Frames>() : roundTimes(engine, *step);
}

int axisHeight(const std::vector<ClipMarker>& markers)
{
    return ticksHeight + (markers.empty() ? 0 : namesHeight);
}

std::optional<ClipMarker> markerAt(double x, const TimeScale& scale, const std::vector<ClipMarker>& markers)
{
    constexpr double reach = 5;
    std::optional<ClipMarker> found;
    for (const ClipMarker& marker : markers) {
        if (std::abs(scale.x(marker.frame) - x) <= reach)
            found = marker;
    }
    return found;
}

void paintAxis(QPainter& painter, const QRectF& place, const CutEngine& engine, const std::vector<ClipMarker>& markers)
{
    const TimeScale scale(engine.length, place.left(), place.width());
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 0.85);
    painter.setFont(font);
    paintMarkers(painter, place, scale, markers);
    const double labelWidth = painter.fontMetrics().horizontalAdvance(qt(timecodeLabel(engine, engine.length)));
    painter.setPen(theme::mutedBeige);
    for (const Frames frame : tickFrames(engine, place.width(), labelWidth)) {
        const double x = scale.x(frame);
        painter.drawLine(QPointF(x, place.bottom() - 4), QPointF(x, place.bottom()));
        if (x + labelWidth <= place.right())
            painter.drawText(
                QRectF(x, place.bottom() - ticksHeight, labelWidth + 2, ticksHeight - 4),
                Qt::AlignLeft | Qt::AlignVCenter, qt(timecodeLabel(engine, frame)));
    }
}

QString markerFacts(const CutEngine& engine, const ClipMarker& marker)
{
    return shown(marker.name) + "\n" + qt(timecodeLabel(engine, marker.frame));
}

TimeAxis::TimeAxis(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(axisHeight({}));
    setProperty("picture", true);
    setAccessibleName(tr("Timecode"));
}

void TimeAxis::show(const CutEngine& engine)
{
    engine_ = &engine;
    markers_ = clipMarkers(engine);
    setFixedHeight(axisHeight(markers_));
    setAccessibleDescription(qt(markersInWords(engine, markers_)));
    update();
}

bool TimeAxis::event(QEvent* event)
{
    const auto* help = event->type() == QEvent::ToolTip ? dynamic_cast<QHelpEvent*>(event) : nullptr;
    if (help == nullptr || engine_ == nullptr)
        return QWidget::event(event);
    const auto marker = markerAt(help->pos().x(), TimeScale(engine_->length, 0, width()), markers_);
    showTip(help->globalPos(), marker ? markerFacts(*engine_, *marker) : QString(), *this);
    return true;
}

void TimeAxis::paintEvent(QPaintEvent*)
{
    if (engine_ == nullptr)
        return;
    QPainter painter(this);
    paintAxis(painter, rect(), *engine_, markers_);
}

} // namespace corvane
