#include "workspace/window/pictures/time_window.h"

#include <algorithm>

namespace corvane {

void TimeWindow::setLength(Frames length)
{
    if (static_cast<double>(length) == length_)
        return;
    length_ = static_cast<double>(length);
    showAll();
}

void TimeWindow::showAll()
{
    shown_ = {0, length_};
}

void TimeWindow::zoom(double factor, double anchor, double fewest)
{
    const double before = shown_.count;
    shown_.count = std::clamp(before / factor, std::min(fewest, before), length_);
    scrollTo(anchor - (anchor - shown_.first) * shown_.count / before);
}

void TimeWindow::scrollTo(double first)
{
    shown_.first = std::clamp(first, 0.0, last());
}

void TimeWindow::revealInMiddle(const FrameRange& frames)
{
    const auto start = static_cast<double>(frames.start);
    const auto end = static_cast<double>(frames.end);
    if (start < shown_.first || end > shown_.first + shown_.count)
        scrollTo((start + end - shown_.count) / 2);
}

void TimeWindow::reveal(const FrameRange& frames)
{
    constexpr double part = 0.05; // of what is shown, so that the neighbours are seen too
    const auto start = static_cast<double>(frames.start);
    const auto end = static_cast<double>(frames.end);
    const double margin = std::clamp((shown_.count - (end - start)) / 2, 0.0, shown_.count * part);
    const double latest = start - margin;
    if (start < shown_.first || latest + shown_.count < end)
        scrollTo(latest);
    else if (end > shown_.first + shown_.count)
        scrollTo(end + margin - shown_.count);
}

} // namespace corvane
