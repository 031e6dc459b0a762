#include "workspace/window/pictures/cut_strip.h"
#include "workspace/window/pictures/time_axis.h"
#include "workspace/window/theme.h"

#include <QPainter>
#include <algorithm>
#include <utility>

namespace corvane {

void CutStrip::paintEvent(QPaintEvent*)
{
    if (view_.state().cuts().empty())
        return;
    QPainter painter(this);
    const QRectF all = lanes();
    paintAxis(painter, QRectF(all.left(), 0, all.width(), all.top()), scale(), view_.state().loaded->engine, markers_);
    paintLanes(painter);
    paintCuts(painter);
    paintMarks(painter);
    paintShortShots(painter);
    paintSelection(painter);
}

void CutStrip::paintLanes(QPainter& painter) const
{
    painter.fillRect(lanes(), theme::fieldGrey);
    QFont letters = font();
    letters.setBold(true);
    letters.setPixelSize(std::max(7, static_cast<int>(laneOf(cameras_.front()).height()) - 2));
    painter.setFont(letters);
    for (const std::string& camera : cameras_) {
        const QRectF lane = laneOf(camera);
        painter.setPen(marks_.of(camera).color);
        painter.drawText(
            QRectF(0, lane.top(), lane.left() - 5, lane.height()), Qt::AlignRight | Qt::AlignVCenter,
            marks_.of(camera).letter);
    }
}

void CutStrip::paintCuts(QPainter& painter) const
{
    const TimeScale scale = this->scale();
    std::vector<std::pair<QRectF, QColor>> lanes;
    for (const std::string& camera : cameras_)
        lanes.emplace_back(laneOf(camera).adjusted(0, 1, 0, -1), marks_.of(camera).color);
    for (std::size_t position = 0; position < cutLanes_.size(); ++position) {
        if (cutLanes_[position] == lanes.size())
            continue;
        const Cut& cut = view_.state().cuts()[position];
        const auto& [lane, color] = lanes[cutLanes_[position]];
        const double left = scale.x(cut.start);
        const double right = scale.x(cut.start + cut.duration);
        painter.fillRect(QRectF(left, lane.top(), std::max(1.0, right - left - 0.5), lane.height()), color);
    }
}

/// Hatches fixed sections over the height of their lane, and outlines opening and closing shots.
void CutStrip::paintMarks(QPainter& painter) const
{
    const QRectF all = lanes();
    const TimeScale scale = this->scale();
    for (const FixedCameraSection& section : asked_.sections) {
        const QRectF lane = laneOf(section.angle);
        const double left = scale.x(section.start);
        const QRectF place(left, lane.top(), std::max(2.0, scale.x(section.end) - left), lane.height());
        painter.fillRect(place, QBrush(QColor(0, 0, 0, 150), Qt::BDiagPattern));
        painter.setPen(QPen(theme::warmWhite, 1));
        painter.drawRect(place.adjusted(0.5, 0.5, -0.5, -0.5));
    }
    painter.setPen(QPen(theme::warmWhite, 1, Qt::DotLine));
    for (const auto& shot : {asked_.opening, asked_.closing}) {
        if (shot) {
            const double left = scale.x(shot->start);
            painter.drawRect(
                QRectF(left + 0.5, all.top() + 0.5, std::max(2.0, scale.x(shot->end) - left - 1), all.height() - 1));
        }
    }
}

/// Paints an arrow above each short shot, because the shot itself may be narrower than a pixel.
void CutStrip::paintShortShots(QPainter& painter) const
{
    const QRectF all = lanes();
    const TimeScale scale = this->scale();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::shortShot);
    for (const std::size_t position : short_) {
        const Cut& cut = view_.state().cuts()[position];
        const QRectF lane = laneOf(cut.angle);
        const double left = scale.x(cut.start);
        const double right = std::max(left + 1, scale.x(cut.start + cut.duration));
        painter.drawRect(QRectF(left, lane.top() + 1, right - left, lane.height() - 2));
        const QPointF tip((left + right) / 2, all.top() + 1);
        painter.drawPolygon(QPolygonF({tip, tip + QPointF(-4, -6), tip + QPointF(4, -6)}));
    }
    painter.restore();
}

void CutStrip::paintSelection(QPainter& painter) const
{
    const auto& cuts = view_.state().cuts();
    if (selected_ < 0 || selected_ >= static_cast<int>(cuts.size()))
        return;
    const Cut& cut = cuts[static_cast<std::size_t>(selected_)];
    const QRectF all = lanes();
    const TimeScale scale = this->scale();
    const double left = scale.x(cut.start);
    const double width = std::max(2.0, scale.x(cut.start + cut.duration) - left);
    painter.fillRect(QRectF(left, all.top(), width, all.height()), QColor(255, 255, 255, 45));
    painter.setPen(QPen(theme::orange, 2));
    painter.drawRect(QRectF(left, all.top() + 1, width, all.height() - 2));
}

} // namespace corvane
