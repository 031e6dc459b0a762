#pragma once

#include "import/clip_markers.h"

#include <QHelpEvent>
#include <QWidget>
#include <optional>
#include <vector>

namespace corvane {

/// Project frames laid out from left to right over a width in pixels.
class TimeScale {
public:
    TimeScale(Frames length, double left, double width) : length_(length), left_(left), width_(width) {}

    [[nodiscard]] double x(Frames frame) const
    {
        return left_ + width_ * static_cast<double>(frame) / static_cast<double>(length_);
    }
    /// The frame under a place, kept inside the project.
    [[nodiscard]] Frames frame(double x) const;

private:
    Frames length_;
    double left_;
    double width_;
};

/// Frames at which an axis of this width carries a timecode: where whole seconds, minutes or hours of timecode begin,
/// so far apart that labels of `labelWidth` pixels do not touch; none where even days would touch.
[[nodiscard]] std::vector<Frames> tickFrames(const CutEngine& engine, double width, double labelWidth);

/// What an axis is high: a line of timecodes, and one of names above it where there are markers.
[[nodiscard]] int axisHeight(const std::vector<ClipMarker>& markers);

/// Paints ticks and their timecodes into the rectangle, and markers with their names above them.
void paintAxis(QPainter& painter, const QRectF& place, const CutEngine& engine, const std::vector<ClipMarker>& markers);

/// The marker, the last of several, that a person points at; none where there is none.
[[nodiscard]] std::optional<ClipMarker> markerAt(
    double x, const TimeScale& scale, const std::vector<ClipMarker>& markers);

/// The marker's name and its timecode, for a tooltip.
[[nodiscard]] QString markerFacts(const CutEngine& engine, const ClipMarker& marker);

/// The timecodes above a column of bars.
class TimeAxis : public QWidget {
    Q_OBJECT
public:
    explicit TimeAxis(QWidget* parent = nullptr);
    /// `engine` must live as long as it is shown.
    void show(const CutEngine& engine);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    const CutEngine* engine_ = nullptr;
    std::vector<ClipMarker> markers_;
};

} // namespace corvane
