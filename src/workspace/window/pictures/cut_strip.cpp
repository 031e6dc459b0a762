#include "workspace/window/pictures/cut_strip.h"

#include "timecode/timecode.h"
#include "workspace/captions.h"
#include "workspace/window/pictures/time_axis.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <map>
#include <utility>

namespace corvane {

namespace {

constexpr double gutter = 24; // space for the letters
constexpr int widestLane = 14;
constexpr int narrowestLane = 9;
constexpr int roomyLanes = 8;

} // namespace

CutStrip::CutStrip(const ContentView& view, QWidget* parent) : QWidget(parent), view_(view)
{
    setProperty("picture", true);
    setAccessibleName(tr("The whole edit"));
    setMouseTracking(true);
}

void CutStrip::show(const CameraMarks& marks)
{
    marks_ = marks;
    asked_ = editMarks(view_);
    reasons_ = EditReasons(view_);
    short_ = shortShots(view_, asked_);
    selected_ = -1;
    markers_ = view_.state().loaded ? clipMarkers(view_.state().loaded->engine) : std::vector<ClipMarker>();
    cameras_.clear();
    std::map<std::string_view, std::size_t> laneOfCamera;
    for (const ImportedAngle& angle : view_.videoAngles())
        cameras_.push_back(angle.id);
    for (std::size_t lane = 0; lane < cameras_.size(); ++lane)
        laneOfCamera.emplace(cameras_[lane], lane);
    cutLanes_.clear();
    for (const Cut& cut : view_.state().cuts()) {
        const auto lane = laneOfCamera.find(cut.angle);
        cutLanes_.push_back(lane == laneOfCamera.end() ? cameras_.size() : lane->second);
    }
    const int lanes = std::max(1, static_cast<int>(cameras_.size()));
    setFixedHeight(axisHeight(markers_) + lanes * (lanes > roomyLanes ? narrowestLane : widestLane));
    const auto& cuts = view_.state().cuts();
    QString more;
    if (!short_.empty())
        more += " " + qt(shortShotsText(short_.size())) + ".";
    if (!markers_.empty())
        more += " " + qt(markersInWords(view_.state().loaded->engine, markers_));
    setAccessibleDescription(
        tr("%1 cuts on %2 cameras. The table below has the same cuts.").arg(cuts.size()).arg(cameras_.size()) + more);
    if (underMouse())
        hideTip(); // it belongs to the previous edit
    update();
}

void CutStrip::select(int position)
{
    selected_ = position;
    update();
}

QRectF CutStrip::lanes() const
{
    const int axis = axisHeight(markers_);
    return QRectF(gutter, axis, width() - gutter, height() - axis);
}

QRectF CutStrip::laneOf(const std::string& camera) const
{
    const auto found = std::ranges::find(cameras_, camera);
    const QRectF all = lanes();
    const double height = all.height() / static_cast<double>(std::max<std::size_t>(1, cameras_.size()));
    return {all.left(), all.top() + height * static_cast<double>(found - cameras_.begin()), all.width(), height};
}

std::optional<Frames> CutStrip::frameAt(const QPoint& place) const
{
    if (view_.state().cuts().empty() || place.x() < gutter)
        return std::nullopt;
    const QRectF all = lanes();
    return TimeScale(view_.state().loaded->engine.length, all.left(), all.width()).frame(place.x());
}

QString CutStrip::factsAt(const QPoint& place) const
{
    const auto frame = frameAt(place);
    if (!frame)
        return {};
    const QRectF all = lanes();
    const CutEngine& engine = view_.state().loaded->engine;
    const auto marker = markerAt(place.x(), TimeScale(engine.length, all.left(), all.width()), markers_);
    return place.y() < all.top() && marker ? markerFacts(engine, *marker) : facts(cutAt(view_.state().cuts(), *frame));
}

QString CutStrip::facts(std::size_t position) const
{
    const Cut& cut = view_.state().cuts()[position];
    QString text = qt(startLabel(view_, cut)) + "\n" + shown(view_.angleLabel(cut.angle)) + "\n" +
                   tr("%1 sec").arg(qt(durationLabel(view_, cut, theme::decimalSign())));
    if (const std::string reasons = reasons_.line(position); !reasons.empty())
        text += "\n" + shown(reasons);
    if (std::ranges::binary_search(short_, position))
        text += "\n" + qt(shortShotText);
    return text;
}

void CutStrip::paintEvent(QPaintEvent*)
{
    if (view_.state().cuts().empty())
        return;
    QPainter painter(this);
    const QRectF all = lanes();
    painter.save();
    paintAxis(painter, QRectF(all.left(), 0, all.width(), all.top()), view_.state().loaded->engine, markers_);
    painter.restore();
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
            QRectF(0, lane.top(), gutter - 5, lane.height()), Qt::AlignRight | Qt::AlignVCenter,
            marks_.of(camera).letter);
    }
}

void CutStrip::paintCuts(QPainter& painter) const
{
    const QRectF all = lanes();
    const TimeScale scale(view_.state().loaded->engine.length, all.left(), all.width());
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
    const TimeScale scale(view_.state().loaded->engine.length, all.left(), all.width());
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
    const TimeScale scale(view_.state().loaded->engine.length, all.left(), all.width());
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
    const TimeScale scale(view_.state().loaded->engine.length, all.left(), all.width());
    const double left = scale.x(cut.start);
    const double width = std::max(2.0, scale.x(cut.start + cut.duration) - left);
    painter.fillRect(QRectF(left, all.top(), width, all.height()), QColor(255, 255, 255, 45));
    painter.setPen(QPen(theme::orange, 2));
    painter.drawRect(QRectF(left, all.top() + 1, width, all.height() - 2));
}

void CutStrip::mousePressEvent(QMouseEvent* event)
{
    if (const auto frame = frameAt(event->position().toPoint()))
        emit picked(static_cast<int>(cutAt(view_.state().cuts(), *frame)), *frame);
}

bool CutStrip::event(QEvent* event)
{
    if (const auto* help = dynamic_cast<QHelpEvent*>(event); help != nullptr && help->type() == QEvent::ToolTip) {
        showTip(help->globalPos(), factsAt(help->pos()), *this);
        return true;
    }
    return QWidget::event(event);
}

} // namespace corvane
