#pragma once

#include "workspace/window/pictures/time_axis.h"

namespace corvane {

/// The part of a project that the user has zoomed and scrolled to. It never leaves the project.
class TimeWindow {
public:
    /// Shows all of a project of another length; at least 1 frame.
    void setLength(Frames length);
    void showAll();
    /// Shows as many frames divided by `factor`, but no fewer than `fewest` unless there are fewer already. What is at
    /// the place `anchor`, in frames, stays where it is.
    void zoom(double factor, double anchor, double fewest);
    /// Begins at this place, in frames, as far as there are enough frames behind it.
    void scrollTo(double first);
    /// Scrolls as little as possible until these frames are shown, or their beginning if they do not fit.
    void reveal(const FrameRange& frames);
    /// Scrolls these frames to the middle unless they are shown.
    void revealInMiddle(const FrameRange& frames);

    [[nodiscard]] const VisibleFrames& shown() const { return shown_; }
    [[nodiscard]] bool showsAll() const { return shown_.count >= length_; }
    /// The last place at which it can begin.
    [[nodiscard]] double last() const { return length_ - shown_.count; }

private:
    double length_ = 1;
    VisibleFrames shown_;
};

} // namespace corvane
