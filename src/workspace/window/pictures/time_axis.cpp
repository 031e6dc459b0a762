#include "workspace/window/pictures/time_axis.h"

#include "timecode/timecode.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace corvane {

namespace {

constexpr int axisHeight = 22;

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
