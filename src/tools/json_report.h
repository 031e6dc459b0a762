#pragma once

#include "export/export_files.h"
#include "tools/loaded_file.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// The version of jsonReport's format. It is raised when a member is removed or changes its meaning, but not when one
/// is added. resources/corvane-report.schema.json describes the format.
constexpr int reportForm = 1;

/// What is known about one project when its report is written. Steps that were not reached are left out.
struct ProjectFacts {
    std::string path;                   ///< of the project file, as given
    std::optional<std::string> refusal; ///< why something was not written or cannot be cut
    const LoadedFile* file = nullptr;
    const ProjectCheck* check = nullptr;
    const std::vector<Cut>* cuts = nullptr;
    std::optional<ExportFiles> files;
};

/// The facts as one JSON document on one line, without a line feed. Ranges are half-open. Every time is a number of
/// project frames, together with its timecode; the project has the frame rate.
[[nodiscard]] std::string jsonReport(const ProjectFacts& facts);

} // namespace corvane
