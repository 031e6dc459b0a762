#include "workspace/window/pictures/time_axis.h"

#include "timecode/timecode.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

namespace corvane {

namespace {

constexpr int axisHeight = 22;

/// The frame nearest to a time, or one of the next few where the timecode begins a second: drop-frame labels do that
/// up to two frames later than the clock.
Frames frameAt(const CutEngine& engine, double seconds)
{
    constexpr Frames mostLate = 3;
    const auto nearest = static_cast<Frames>(std::round(engine.frames(seconds)));
    if (!engine.dropFrame)
        return nearest;
    for (Frames frame = nearest; frame < nearest + mostLate; ++frame) {
        const std::string label = timecodeLabel(engine, frame);
        if (label.ends_with(";00") || label.ends_with(";02"))
            return frame;
    }
    return nearest;
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
    constexpr std::array<double, 17> steps = {1,   2,   5,    10,   15,   30,    60,    120,  300,
                                              600, 900, 1800, 3600, 7200, 14400, 28800, 86400};
    const double seconds = engine.seconds(engine.length);
    constexpr double space = 14;
    double step = steps.back();
    for (const double candidate : steps) {
        if (candidate / seconds * width >= labelWidth + space) {
            step = candidate;
            break;
        }
    }
    std::vector<Frames> frames;
    if (!(seconds > 0) || seconds / step > width)
        return frames;
    for (double second = 0; second < seconds; second += step)
        frames.push_back(frameAt(engine, second));
    return frames;
}

void paintAxis(QPainter& painter, const QRectF& place, const CutEngine& engine)
{
    const TimeScale scale(engine.length, place.left(), place.width());
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 0.85);
    painter.setFont(font);
    const double labelWidth = painter.fontMetrics().horizontalAdvance(qt(timecodeLabel(engine, engine.length)));
    painter.setPen(theme::mutedBeige);
    for (const Frames frame : tickFrames(engine, place.width(), labelWidth)) {
        const double x = scale.x(frame);
        painter.drawLine(QPointF(x, place.bottom() - 4), QPointF(x, place.bottom()));
        if (x + labelWidth <= place.right())
            painter.drawText(
                QRectF(x, place.top(), labelWidth + 2, place.height() - 4), Qt::AlignLeft | Qt::AlignVCenter,
                qt(timecodeLabel(engine, frame)));
    }
}

TimeAxis::TimeAxis(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(axisHeight);
}

void TimeAxis::show(const CutEngine& engine)
{
    engine_ = &engine;
    update();
}

void TimeAxis::paintEvent(QPaintEvent*)
{
    if (engine_ == nullptr)
        return;
    QPainter painter(this);
    paintAxis(painter, rect(), *engine_);
}

} // namespace corvane
