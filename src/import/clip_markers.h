#pragma once

#include "import/cut_engine.h"

#include <string>
#include <vector>

namespace corvane {

/// A marker of the project's multicam clip.
struct ClipMarker {
    Frames frame = 0; ///< of the project
    std::string name; ///< its "value"
    bool operator==(const ClipMarker&) const = default;
};

/// The markers and chapter markers within the project, by frame. What cannot be read, or stands between two frames, is
/// left out, and so is everything of an engine without a document.
[[nodiscard]] std::vector<ClipMarker> clipMarkers(const CutEngine& engine);

} // namespace corvane
