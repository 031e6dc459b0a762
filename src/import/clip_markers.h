#pragma once

#include "import/cut_engine.h"

#include <string>
#include <vector>

namespace corvane {

/// A marker of the project's multicam clip.
struct ClipMarker {
    Frames frame = 0; ///< in the project
    std::string name; ///< the attribute "value"
    bool operator==(const ClipMarker&) const = default;
};

/// The markers and chapter markers within the project, sorted by frame. Markers that cannot be read or are between two
/// frames are skipped. An engine without a document has no markers.
[[nodiscard]] std::vector<ClipMarker> clipMarkers(const CutEngine& engine);

} // namespace corvane
