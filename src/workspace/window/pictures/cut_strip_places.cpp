// What of the edit is visible, and where.
#include "workspace/window/pictures/cut_strip.h"

#include <QEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr int gutter = 24; // space for the letters
constexpr int barWidth = 8;
constexpr int widestLane = 40;
constexpr std::size_t fewestLanes = 3; // that are visible in a low window
constexpr double widestFrame = 40;
constexpr double keyFactor = 2;

} // namespace

/// High enough for a letter that can be read.
int CutStrip::narrowestLane() const
{
    constexpr int least = 12;
    return std::max(least, fontMetrics().height() * 3 / 4);
}

void CutStrip::limitHeight()
{
    const int around = axisHeight(markers_) + barWidth;
    const auto height = [this, around](std::size_t lanes, int lane) {
        return around +
               static_cast<int>(std::clamp<std::size_t>(lanes, 1, std::max<std::size_t>(1, cameras_.size()))) * lane;
    };
    setMinimumHeight(height(fewestLanes, narrowestLane()));
    setMaximumHeight(height(cameras_.size(), std::max(widestLane, narrowestLane())));
}

QSize CutStrip::sizeHint() const
{
    return {QWidget::sizeHint().width(), minimumHeight()};
}

double CutStrip::laneHeight() const
{
    const auto count = static_cast<double>(std::max<std::size_t>(1, cameras_.size()));
    const double room = height() - axisHeight(markers_) - barWidth;
    return std::clamp<double>(room / count, narrowestLane(), std::max(widestLane, narrowestLane()));
}

QRectF CutStrip::lanes() const
{
    const double all = laneHeight() * static_cast<double>(cameras_.size());
    const int axis = axisHeight(markers_);
    const double room = height() - axis - barWidth;
    const int bar = all > room + 0.5 ? barWidth : 0;
    return {gutter, static_cast<double>(axis), static_cast<double>(width() - gutter - bar), std::min(room, all)};
}

QRectF CutStrip::axis() const
{
    const QRectF all = lanes();
    return {all.left(), 0, all.width(), all.top()};
}

TimeScale CutStrip::scale() const
{
    const QRectF all = lanes();
    return {time_.shown(), all.left(), all.width()};
}

QRectF CutStrip::lane(std::size_t number) const
{
    const QRectF all = lanes();
    const double height = laneHeight();
    return {all.left(), all.top() + height * static_cast<double>(number) - laneBar_->value(), all.width(), height};
}

QRectF CutStrip::laneOf(const std::string& camera) const
{
    return lane(static_cast<std::size_t>(std::ranges::find(cameras_, camera) - cameras_.begin()));
}

/// Cut off where it leaves the picture: the toolkit takes long for lines of a
/// million pixels.
QRectF CutStrip::stretch(const FrameRange& frames, const QRectF& lane, double least) const
{
    constexpr double beyond = 8;
    const TimeScale scale = this->scale();
    const double left = std::max(scale.x(frames.start), lane.left() - beyond);
    const double right = std::min(scale.x(frames.end), lane.right() + beyond);
    return {left, lane.top(), std::max(least, right - left), lane.height()};
}

QRectF CutStrip::stretch(std::size_t position, const QRectF& lane, double least) const
{
    const Cut& cut = view_.state().cuts()[position];
    return stretch({cut.start, cut.start + cut.duration}, lane, least);
}

std::pair<std::size_t, std::size_t> CutStrip::visibleCuts() const
{
    const auto& cuts = view_.state().cuts();
    const FrameRange frames = scale().frames();
    return {cutAt(cuts, frames.start), cutAt(cuts, frames.end - 1) + 1};
}

std::optional<Frames> CutStrip::frameAt(const QPoint& place) const
{
    const QRectF all = lanes();
    if (view_.state().cuts().empty() || place.x() < all.left())
        return std::nullopt;
    return scale().frame(place.x());
}

void CutStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    showChange();
}

void CutStrip::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        limitHeight();
}

/// The scroll bars, the letters and the picture after something in the view has
/// changed.
void CutStrip::showChange()
{
    arrange();
    update();
}

void CutStrip::arrange()
{
    const QRect all = lanes().toRect();
    const auto count = static_cast<int>(time_.shown().count);
    {
        const QSignalBlocker blocker(timeBar_);
        timeBar_->setGeometry(all.left(), height() - barWidth, all.width(), barWidth);
        timeBar_->setRange(0, static_cast<int>(std::ceil(time_.last())));
        timeBar_->setPageStep(std::max(1, count));
        timeBar_->setSingleStep(std::max(1, count / 10));
        timeBar_->setValue(static_cast<int>(std::lround(time_.shown().first)));
    }
    const double height = laneHeight() * static_cast<double>(cameras_.size());
    laneBar_->setGeometry(width() - barWidth, all.top(), barWidth, all.height());
    laneBar_->setRange(0, std::max(0, static_cast<int>(std::floor(height - lanes().height() + 0.5))));
    laneBar_->setPageStep(std::max(1, all.height()));
    laneBar_->setSingleStep(static_cast<int>(laneHeight()));
    timeBar_->setVisible(!time_.showsAll());
    laneBar_->setVisible(laneBar_->maximum() > 0);
    placeLetters();
}

void CutStrip::placeLetters()
{
    constexpr int smallest = 9;
    constexpr int space = 5;
    const QRect all = lanes().toRect();
    gutter_->setGeometry(0, all.top(), gutter, all.height());
    QFont letters = font();
    letters.setBold(true);
    letters.setPixelSize(std::clamp(static_cast<int>(laneHeight() * 0.8), smallest, fontMetrics().ascent()));
    for (std::size_t number = 0; number < letters_.size(); ++number) {
        const QRect place = lane(number).toRect();
        letters_[number]->setFont(letters);
        letters_[number]->setGeometry(0, place.top() - all.top(), gutter - space, place.height());
    }
}

void CutStrip::reveal(std::size_t position, const FrameRange& frames)
{
    time_.reveal(frames);
    if (position < cutLanes_.size() && cutLanes_[position] < cameras_.size()) {
        const QRectF all = lanes();
        const QRectF place = lane(cutLanes_[position]);
        const double above = std::max(0.0, all.top() - place.top());
        const double below = std::max(0.0, place.bottom() - all.bottom());
        laneBar_->setValue(laneBar_->value() + static_cast<int>(std::ceil(below) - std::ceil(above)));
    }
    showChange();
}

void CutStrip::revealInMiddle(std::size_t position)
{
    const Cut& cut = view_.state().cuts()[position];
    const FrameRange frames = {cut.start, cut.start + cut.duration};
    time_.revealInMiddle(frames);
    reveal(position, frames);
}

void CutStrip::zoom(double factor, double anchor)
{
    time_.zoom(factor, anchor, lanes().width() / widestFrame);
    showChange();
}

/// A frame that is out of view comes into its middle.
void CutStrip::zoomByKey(double factor)
{
    const VisibleFrames& shown = time_.shown();
    const double middle = shown.first + shown.count / 2;
    const double frame = frame_ ? static_cast<double>(*frame_) + 0.5 : middle;
    if (frame < shown.first || frame > shown.first + shown.count)
        time_.scrollTo(frame - shown.count / 2);
    zoom(factor, frame);
}

void CutStrip::zoomIn()
{
    zoomByKey(keyFactor);
}

void CutStrip::zoomOut()
{
    zoomByKey(1 / keyFactor);
}

bool CutStrip::canZoomIn() const
{
    return scale().frameWidth() < widestFrame * 0.999; // what rounding leaves
}

void CutStrip::fit()
{
    time_.showAll();
    showChange();
}

} // namespace corvane
