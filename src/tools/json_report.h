#pragma once

#include "export/export_files.h"
#include "tools/loaded_file.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// The version of the form that jsonReport writes. A member that is added leaves it alone; one that changes its meaning
/// or goes raises it. resources/corvane-report.schema.json describes it.
constexpr int reportForm = 1;

/// What is known of one project when its report is written; what was not reached is left out.
struct ProjectFacts {
    std::string path;                   ///< of the project file, as it was given
    std::optional<std::string> refusal; ///< why nothing, or not everything, was written or can be cut
    const LoadedFile* file = nullptr;
    const ProjectCheck* check = nullptr;
    const std::vector<Cut>* cuts = nullptr;
    std::optional<ExportFiles> files;
};

/// The facts as one JSON document in one line, without a line feed. Ranges are half-open. Every time is a number of
/// project frames, with its timecode beside it; the rate stands with the project.
[[nodiscard]] std::string jsonReport(const ProjectFacts& facts);

} // namespace corvane
