#pragma once

#include "import/project_outline.h"
#include "xml/document.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

class AngleFootage;

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

/// Reads an export of one project with one multicam clip and refuses everything else, with a sentence that tells
/// what to export instead. Bytes that are no XML fail with the parser's own PlatformError.
[[nodiscard]] ImportedProject importProject(std::string_view bytes);
[[nodiscard]] ImportedProject importProject(const xml::Document& document);
/// Shows each angle and its children to `footage` too, where there is one; it takes no part in the summary.
[[nodiscard]] ImportedProject importProject(const ProjectOutline& outline, AngleFootage* footage = nullptr);

/// True for the mc-source that supplies sound: its "srcEnable" is "all" (also when absent) or "audio".
[[nodiscard]] bool suppliesAudio(xml::Element mcSource);

} // namespace corvane
