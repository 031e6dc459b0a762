#pragma once

#include "engine/edit_settings.h"
#include "workspace/window/camera_marks.h"

#include <QPainter>
#include <vector>

namespace corvane {

/// Paints an edit as one bar in the colours of its cameras over the time of a project of `length` frames. A pixel has
/// the colour of the cut in its middle, so that the time it takes depends on the width and not on the number of cuts.
void paintEditStrip(
    QPainter& painter, const QRectF& place, const std::vector<Cut>& cuts, Frames length, const CameraMarks& marks);

} // namespace corvane
