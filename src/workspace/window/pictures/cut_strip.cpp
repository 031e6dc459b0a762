#include "workspace/window/pictures/cut_strip.h"

#include "timecode/timecode.h"
#include "workspace/captions.h"
#include "workspace/window/pictures/time_axis.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <algorithm>
#include <map>

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

TimeScale CutStrip::scale() const
{
    const QRectF all = lanes();
    return {view_.state().loaded->engine.length, all.left(), all.width()};
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
    return scale().frame(place.x());
}

QString CutStrip::factsAt(const QPoint& place) const
{
    const auto frame = frameAt(place);
    if (!frame)
        return {};
    const CutEngine& engine = view_.state().loaded->engine;
    const auto marker = markerAt(place.x(), scale(), markers_);
    return place.y() < lanes().top() && marker ? markerFacts(engine, *marker)
                                               : facts(cutAt(view_.state().cuts(), *frame));
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
