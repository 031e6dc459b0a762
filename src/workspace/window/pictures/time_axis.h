#pragma once

#include "import/cut_engine.h"

#include <QWidget>
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

/// Paints ticks and their timecodes into the rectangle.
void paintAxis(QPainter& painter, const QRectF& place, const CutEngine& engine);

/// The timecodes above a column of bars.
class TimeAxis : public QWidget {
    Q_OBJECT
public:
    explicit TimeAxis(QWidget* parent = nullptr);
    /// `engine` must live as long as it is shown.
    void show(const CutEngine& engine);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const CutEngine* engine_ = nullptr;
};

} // namespace corvane
