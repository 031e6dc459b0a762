#pragma once

#include "import/clip_markers.h"

#include <QHelpEvent>
#include <QWidget>
#include <optional>
#include <vector>

namespace corvane {

/// The part of a project that a picture shows, in frames; while it is scrolled it begins between two frames.
struct VisibleFrames {
    double first = 0;
    double count = 1;
};

/// Maps project frames to horizontal positions within a width in pixels.
class TimeScale {
public:
    TimeScale(const VisibleFrames& shown, double left, double width) : shown_(shown), left_(left), width_(width) {}
    /// Of a picture that shows the whole project.
    TimeScale(Frames length, double left, double width)
        : TimeScale(VisibleFrames{0, static_cast<double>(length)}, left, width)
    {
    }

    [[nodiscard]] double x(Frames frame) const
    {
        return left_ + width_ * (static_cast<double>(frame) - shown_.first) / shown_.count;
    }
    /// The place in the project at a position, in frames; it may be outside what is shown.
    [[nodiscard]] double place(double x) const;
    /// The frame at a position, clamped to what is shown.
    [[nodiscard]] Frames frame(double x) const;
    /// The frames of which anything is shown.
    [[nodiscard]] FrameRange frames() const;
    [[nodiscard]] double frameWidth() const { return width_ / shown_.count; }

private:
    VisibleFrames shown_;
    double left_;
    double width_;
};

/// The frames at which an axis shows a timecode: where whole hours, minutes or seconds of timecode begin, or equal
/// parts of a second, far enough apart that labels of `labelWidth` pixels do not touch. None if even labels for days
/// would touch.
[[nodiscard]] std::vector<Frames> tickFrames(const CutEngine& engine, const TimeScale& scale, double labelWidth);

/// The height of an axis: a line of timecodes and, if there are markers, a line of names above it.
[[nodiscard]] int axisHeight(const std::vector<ClipMarker>& markers);

/// Paints ticks and timecodes into the rectangle, over which `scale` lies, and markers with their names above them.
void paintAxis(
    QPainter& painter, const QRectF& place, const TimeScale& scale, const CutEngine& engine,
    const std::vector<ClipMarker>& markers);

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
