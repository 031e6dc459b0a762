#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// One camera (mc-angle) of the project's multicam. Its id names the camera everywhere.
struct ImportedAngle {
    std::string id; ///< "angleID"
    std::string name;
    std::string cameras;        ///< camera names from the media's metadata, sorted, joined with ", "; empty when none
    std::int64_t clipCount = 0; ///< media clips, those of compound clips included
    std::int64_t gapCount = 0;  ///< gaps directly in the angle
    std::optional<double> firstRecording; ///< seconds: the smallest clip offset as written; none without clips
    bool operator==(const ImportedAngle&) const = default;
};

/// The summary of an imported document that the window shows. It holds no reference to the document.
struct ImportedProject {
    std::string name;
    std::string version; ///< of FCPXML
    double duration = 0; ///< seconds
    double framesPerSecond = 0;
    std::vector<ImportedAngle> angles;         ///< in document order, ids distinct
    std::string audioAngles;                   ///< names of the angles that the multicam clip takes its sound from
    std::vector<std::string> missingLocations; ///< clips and media without a file, sorted, each once
    bool operator==(const ImportedProject&) const = default;
};

} // namespace corvane
