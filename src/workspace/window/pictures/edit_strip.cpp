#include "workspace/window/pictures/edit_strip.h"

#include "workspace/shot_facts.h"
#include "workspace/window/pictures/time_axis.h"

namespace corvane {

void paintEditStrip(
    QPainter& painter, const QRectF& place, const std::vector<Cut>& cuts, Frames length, const CameraMarks& marks)
{
    if (cuts.empty())
        return;
    const double ratio = painter.device()->devicePixelRatioF();
    const auto pixels = static_cast<int>(place.width() * ratio);
    const TimeScale scale(length, 0, pixels);
    const auto cameraAt = [&](int pixel) -> const std::string& {
        return cuts[cutAt(cuts, scale.frame(pixel + 0.5))].angle;
    };
    int begin = 0;
    for (int pixel = 1; pixel <= pixels; ++pixel) {
        if (pixel < pixels && cameraAt(pixel) == cameraAt(begin))
            continue;
        const QRectF piece(place.left() + begin / ratio, place.top(), (pixel - begin) / ratio, place.height());
        painter.fillRect(piece, marks.of(cameraAt(begin)).color);
        begin = pixel;
    }
}

} // namespace corvane
