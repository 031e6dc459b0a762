#pragma once

#include "import/clip_markers.h"

#include <QHelpEvent>
#include <QWidget>
#include <optional>
#include <vector>

namespace corvane {

/// Maps project frames to horizontal positions within a width in pixels.
class TimeScale {
public:
    TimeScale(Frames length, double left, double width) : length_(length), left_(left), width_(width) {}

    [[nodiscard]] double x(Frames frame) const
    {
        return left_ + width_ * static_cast<double>(frame) / static_cast<double>(length_);
    }
    /// The frame at a position, clamped to the project.
    [[nodiscard]] Frames frame(double x) const;

private:
    Frames length_;
    double left_;
    double width_;
};

/// The frames at which an axis of this width shows a timecode: where whole seconds, minutes or hours of timecode begin,
/// far enough apart that labels of `labelWidth` pixels do not touch. None if even labels for days would touch.
[[nodiscard]] std::vector<Frames> tickFrames(const CutEngine& engine, double width, double labelWidth);

/// The height of an axis: a line of timecodes and, if there are markers, a line of names above it.
[[nodiscard]] int axisHeight(const std::vector<ClipMarker>& markers);

/// Paints ticks and timecodes into the rectangle, and markers with their names above them.
void paintAxis(QPainter& painter, const QRectF& place, const CutEngine& engine, const std::vector<ClipMarker>& markers);

/// The marker at the pointer, the last if there are several; none if there is none.
[[nodiscard]] std::optional<ClipMarker> markerAt(
    double x, const TimeScale& scale, const std::vector<ClipMarker>& markers);

/// The marker's name and timecode, for a tooltip.
[[nodiscard]] QString markerFacts(const CutEngine& engine, const ClipMarker& marker);

/// The timecodes above a column of bars.
class TimeAxis : public QWidget {
    Q_OBJECT
public:
    explicit TimeAxis(QWidget* parent = nullptr);
    /// `engine` must exist as long as it is shown.
    void show(const CutEngine& engine);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    const CutEngine* engine_ = nullptr;
    std::vector<ClipMarker> markers_;
};

} // namespace corvane
