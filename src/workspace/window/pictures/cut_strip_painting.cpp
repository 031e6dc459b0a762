#include "timecode/timecode.h"
#include "workspace/window/pictures/cut_strip.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"

#include <QPainter>
#include <algorithm>

namespace corvane {

namespace {

constexpr double narrowestFramed = 8; // a frame around anything narrower would cover its colour

} // namespace

void CutStrip::paintEvent(QPaintEvent*)
{
    if (view_.state().cuts().empty())
        return;
    QPainter painter(this);
    paintAxis(painter, axis(), scale(), view_.state().loaded->engine, markers_);
    painter.setClipRect(lanes());
    paintLanes(painter);
    paintCuts(painter);
    paintMarks(painter);
    painter.setClipRect(lanes() | axis());
    paintShortShots(painter);
    painter.setClipRect(lanes());
    paintWords(painter);
    paintChosen(painter);
    painter.setClipping(false);
    paintSkimmer(painter);
    if (hasFocus()) {
        painter.setPen(QPen(theme::orange, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(lanes().adjusted(-0.5, -0.5, -0.5, 0.5));
    }
}

void CutStrip::paintLanes(QPainter& painter) const
{
    painter.fillRect(lanes(), theme::fieldGrey);
    painter.setPen(QPen(theme::background, 1));
    for (std::size_t number = 1; number < cameras_.size(); ++number)
        painter.drawLine(lane(number).topLeft(), lane(number).topRight());
}

void CutStrip::paintCuts(QPainter& painter) const
{
    std::vector<std::pair<QRectF, QColor>> lanes;
    for (std::size_t number = 0; number < cameras_.size(); ++number)
        lanes.emplace_back(lane(number).adjusted(0, 1, 0, -1), marks_.of(cameras_[number]).color);
    const auto [first, end] = visibleCuts();
    for (std::size_t position = first; position < end; ++position) {
        if (cutLanes_[position] == lanes.size())
            continue;
        const auto& [lane, color] = lanes[cutLanes_[position]];
        QRectF place = stretch(position, lane, 1);
        place.setWidth(std::max(1.0, place.width() - 0.5));
        painter.fillRect(place, color);
    }
}

/// The camera's letter and the length, as far as there is room in what is
/// visible of the cut.
void CutStrip::paintWords(QPainter& painter) const
{
    constexpr int smallest = 9;
    constexpr double margin = 3;
    QFont words = font();
    words.setPixelSize(std::clamp(static_cast<int>(laneHeight()) - 3, smallest, fontMetrics().ascent()));
    painter.setFont(words);
    painter.setPen(QColor(0x16, 0x16, 0x16));
    const auto [first, end] = visibleCuts();
    const double shortest = (smallest + 2 * margin) / scale().frameWidth();
    for (std::size_t position = first; position < end; ++position) {
        const bool isNarrow = static_cast<double>(view_.state().cuts()[position].duration) < shortest;
        if (isNarrow || cutLanes_[position] == cameras_.size())
            continue;
        const QRectF place = stretch(position, lane(cutLanes_[position]), 1) & lanes();
        const double room = place.width() - 2 * margin;
        if (room < smallest)
            continue;
        const QString letter = marks_.of(cameras_[cutLanes_[position]]).letter;
        const auto fits = [&](const QString& text) { return painter.fontMetrics().horizontalAdvance(text) <= room; };
        if (!fits(letter))
            continue;
        const QString seconds = qt(durationLabel(view_, view_.state().cuts()[position], theme::decimalSign()));
        const QString both = letter + "  " + tr("%1 sec").arg(seconds);
        painter.drawText(place.adjusted(margin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, fits(both) ? both : letter);
    }
}

/// Hatches fixed sections over the height of their lane, or underlines them
/// where they are narrow, and outlines opening and closing shots.
void CutStrip::paintMarks(QPainter& painter) const
{
    const FrameRange visible = scale().frames();
    for (const FixedCameraSection& section : asked_.sections) {
        if (section.end <= visible.start || section.start >= visible.end)
            continue;
        const QRectF place = stretch({section.start, section.end}, laneOf(section.angle), 2);
        if (place.width() < narrowestFramed) {
            painter.fillRect(QRectF(place.left(), place.bottom() - 3, place.width(), 2), theme::warmWhite);
            continue;
        }
        painter.fillRect(place, QBrush(QColor(0, 0, 0, 150), Qt::BDiagPattern));
        painter.setPen(QPen(theme::warmWhite, 1));
        painter.drawRect(place.adjusted(0.5, 0.5, -0.5, -0.5));
    }
    painter.setPen(QPen(theme::warmWhite, 1, Qt::DotLine));
    for (const auto& shot : {asked_.opening, asked_.closing}) {
        if (shot)
            painter.drawRect(stretch({shot->start, shot->end}, lanes(), 3).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

/// Paints an arrow above each short shot, because the shot itself may be
/// narrower than a pixel.
void CutStrip::paintShortShots(QPainter& painter) const
{
    const auto [first, end] = visibleCuts();
    const QRectF all = lanes();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::shortShot);
    for (auto position = std::ranges::lower_bound(short_, first); position != short_.end() && *position < end;
         ++position) {
        const QRectF place = stretch(*position, laneOf(view_.state().cuts()[*position].angle), 1);
        painter.drawRect((place & all).adjusted(0, 1, 0, -1));
        const QPointF tip((place & all).center().x(), all.top() + 1);
        painter.drawPolygon(QPolygonF({tip, tip + QPointF(-4, -6), tip + QPointF(4, -6)}));
    }
    painter.restore();
}

/// Frames the chosen cuts. A narrow one has bars at its ends instead, and as
/// the current one a frame around it, so that its colour stays to be seen.
void CutStrip::paintChosen(QPainter& painter) const
{
    const auto [first, end] = visibleCuts();
    const QRectF all = lanes();
    const auto& chosen = chosen_.positions;
    painter.setPen(QPen(theme::orange, 1));
    for (auto position = std::ranges::lower_bound(chosen, first); position != chosen.end() && *position < end;
         ++position) {
        const QRectF place = stretch(*position, all, 2);
        painter.fillRect(place, QColor(255, 255, 255, 45));
        if (place.width() >= narrowestFramed) {
            painter.drawRect(place.adjusted(0.5, 0.5, -0.5, -0.5));
            continue;
        }
        for (const double y : {place.top(), place.bottom() - 2})
            painter.fillRect(QRectF(place.left(), y, place.width(), 2), theme::orange);
    }
    const auto current = static_cast<std::size_t>(chosen_.current); // beyond the end for none
    if (current < first || current >= end)
        return;
    painter.setPen(QPen(theme::orange, 2));
    const QRectF place = stretch(current, all, 2).adjusted(0, 1, 0, -1);
    painter.drawRect(place.width() < narrowestFramed ? place.adjusted(-1, 0, 1, 0) : place);
}

/// A line at the pointer with the timecode and the camera there.
void CutStrip::paintSkimmer(QPainter& painter) const
{
    if (!pointer_)
        return;
    constexpr double margin = 4;
    const QRectF all = lanes();
    const Frames frame = scale().frame(*pointer_);
    const std::string& camera = view_.state().cuts()[cutAt(view_.state().cuts(), frame)].angle;
    const QString text = qt(timecodeLabel(view_.state().loaded->engine, frame)) + "  " + marks_.of(camera).letter +
                         " " + shown(view_.angleLabel(camera));
    painter.setFont(font());
    const double x = *pointer_ + 0.5;
    painter.setPen(QPen(theme::warmWhite, 1));
    painter.drawLine(QPointF(x, 0), QPointF(x, all.bottom()));
    const double width =
        std::min(painter.fontMetrics().horizontalAdvance(text) + 2 * margin, std::max(all.right() - x, x - all.left()));
    const double height = std::min<double>(painter.fontMetrics().height() + 2, all.top());
    const QRectF box(x + width <= all.right() ? x : x - width, all.top() - height, width, height);
    painter.fillRect(box, theme::lighterGrey);
    painter.drawText(
        box.adjusted(margin, 0, -margin, 0), Qt::AlignLeft | Qt::AlignVCenter,
        painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(width - 2 * margin) + 1));
}

} // namespace corvane
