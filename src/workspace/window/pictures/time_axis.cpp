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

/// Paints a name only if all of it or enough to tell it fits before the next marker.
void paintMarkers(
    QPainter& painter, const QRectF& place, const TimeScale& scale, const std::vector<ClipMarker>& markers)
{
    const double narrowest = 4.0 * painter.fontMetrics().averageCharWidth();
    const FrameRange visible = scale.frames();
    auto marker = std::ranges::lower_bound(markers, visible.start, {}, &ClipMarker::frame);
    for (; marker != markers.end() && marker->frame < visible.end; ++marker) {
        const double x = scale.x(marker->frame);
        painter.setPen(QPen(theme::orange, 1));
        painter.drawLine(QPointF(x, place.top() + 2), QPointF(x, place.top() + namesHeight));
        painter.drawLine(QPointF(x, place.bottom() - 4), QPointF(x, place.bottom())); // not across the timecodes
        const double next = marker + 1 != markers.end() ? scale.x((marker + 1)->frame) : place.right();
        const double room = std::min(next, place.right()) - x - 6;
        if (room <= 0) // thousands of markers are measured in vain otherwise
            continue;
        const QString name = shown(marker->name);
        if (room < std::min<double>(narrowest, painter.fontMetrics().horizontalAdvance(name)))
            continue;
        painter.setPen(theme::warmWhite);
        painter.drawText(
            QRectF(x + 3, place.top(), room + 2, namesHeight), Qt::AlignLeft | Qt::AlignVCenter,
            painter.fontMetrics().elidedText(name, Qt::ElideRight, static_cast<int>(room)));
    }
}

/// Single frames have a mark, but no timecode, as soon as they can be told apart.
void paintFrames(QPainter& painter, const QRectF& place, const TimeScale& scale)
{
    constexpr double narrowest = 5;
    const FrameRange visible = scale.frames();
    for (Frames frame = visible.start; frame < visible.end && scale.frameWidth() >= narrowest; ++frame)
        painter.drawLine(QPointF(scale.x(frame), place.bottom() - 2), QPointF(scale.x(frame), place.bottom()));
}

/// The smallest round number of labels, at least `least`: frames that divide a second evenly, or round times. 0 if
/// there is none.
std::int64_t roundStep(std::int64_t labelsPerSecond, double least)
{
    constexpr std::array<std::int64_t, 17> seconds = {1,   2,   5,    10,   15,   30,    60,    120,  300,
                                                      600, 900, 1800, 3600, 7200, 14400, 28800, 86400};
    for (auto labels = static_cast<std::int64_t>(std::ceil(std::min(least, static_cast<double>(labelsPerSecond))));
         labels < labelsPerSecond; ++labels) {
        if (labelsPerSecond % labels == 0)
            return labels;
    }
    const auto fits = [&](std::int64_t step) { return static_cast<double>(step * labelsPerSecond) >= least; };
    const auto step = std::ranges::find_if(seconds, fits);
    return step == seconds.end() ? 0 : *step * labelsPerSecond;
}

} // namespace

double TimeScale::place(double x) const
{
    return width_ > 0 ? shown_.first + (x - left_) / width_ * shown_.count : shown_.first;
}

Frames TimeScale::frame(double x) const
{
    const FrameRange visible = frames();
    const double frame = std::floor(place(x));
    return static_cast<Frames>(
        std::clamp(frame, static_cast<double>(visible.start), static_cast<double>(visible.end - 1)));
}

FrameRange TimeScale::frames() const
{
    constexpr double rounding = 1e-6;
    return {
        static_cast<Frames>(std::floor(shown_.first + rounding)),
        static_cast<Frames>(std::ceil(shown_.first + shown_.count - rounding))};
}

std::vector<Frames> tickFrames(const CutEngine& engine, const TimeScale& scale, double labelWidth)
{
    constexpr double space = 14;
    const double frameWidth = scale.frameWidth();
    if (!(frameWidth > 0))
        return {};
    const double apart = (labelWidth + space) / frameWidth;
    const std::int64_t step = roundStep(labelsPerSecond(engine), apart);
    FrameRange within = scale.frames();
    within.start = std::max<Frames>(0, within.start - static_cast<Frames>(std::ceil(apart))); // its label is in view
    return step == 0 ? std::vector<Frames>() : roundTimes(engine, step, within);
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

void paintAxis(
    QPainter& painter, const QRectF& place, const TimeScale& scale, const CutEngine& engine,
    const std::vector<ClipMarker>& markers)
{
    painter.save();
    painter.setClipRect(place);
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 0.85);
    painter.setFont(font);
    paintMarkers(painter, place, scale, markers);
    const double labelWidth = painter.fontMetrics().horizontalAdvance(qt(timecodeLabel(engine, engine.length)));
    painter.setPen(theme::mutedBeige);
    paintFrames(painter, place, scale);
    for (const Frames frame : tickFrames(engine, scale, labelWidth)) {
        const double x = scale.x(frame);
        painter.drawLine(QPointF(x, place.bottom() - 4), QPointF(x, place.bottom()));
        if (x + labelWidth <= place.right())
            painter.drawText(
                QRectF(x, place.bottom() - ticksHeight, labelWidth + 2, ticksHeight - 4),
                Qt::AlignLeft | Qt::AlignVCenter, qt(timecodeLabel(engine, frame)));
    }
    painter.restore();
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
    paintAxis(painter, rect(), TimeScale(engine_->length, 0, width()), *engine_, markers_);
}

} // namespace corvane
