#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// One camera (mc-angle) of the project's multicam clip. Its id identifies the camera everywhere.
struct ImportedAngle {
    std::string id; ///< "angleID"
    std::string name;
    std::string cameras;        ///< camera names from the media's metadata, sorted and joined with ", "; may be empty
    std::int64_t clipCount = 0; ///< media clips, including those of compound clips
    std::int64_t gapCount = 0;  ///< gaps directly in the angle
    std::optional<double> firstRecording; ///< the smallest clip offset as written, in seconds; none without clips
    bool operator==(const ImportedAngle&) const = default;
};

/// The angle with this id; null if there is none.
[[nodiscard]] inline const ImportedAngle* angleWithID(const std::vector<ImportedAngle>& angles, std::string_view id)
{
    const auto found = std::ranges::find(angles, id, &ImportedAngle::id);
    return found == angles.end() ? nullptr : &*found;
}

/// The summary of an imported document for the window. It does not refer to the document.
struct ImportedProject {
    std::string name;
    std::string version; ///< of FCPXML
    double duration = 0; ///< seconds
    double framesPerSecond = 0;
    std::vector<ImportedAngle> angles;         ///< in document order, ids distinct
    std::string audioAngles;                   ///< names of the angles from which the multicam clip takes its audio
    std::vector<std::string> missingLocations; ///< clips and media without a file, sorted, each once
    bool operator==(const ImportedProject&) const = default;
};

} // namespace corvane
