#pragma once

#include "analysis/project_check.h"
#include "import/project_loading.h"
#include "session/starting_settings.h"

#include <string>

namespace corvane {

/// A project file as the window would load it, with the settings with which the window would start.
struct LoadedFile {
    std::string path; ///< as given
    ImportedProject project;
    CutEngine engine;
    EditSettings settings; ///< the settings after an import
};

/// Reads a .fcpxml file or a .fcpxmld bundle. Throws PlatformError or FinalCutImportError with the same messages as the
/// window.
[[nodiscard]] LoadedFile loadFile(const std::string& path);

/// The path relative to the working directory if it is inside, otherwise unchanged.
[[nodiscard]] std::string shownPath(const std::string& path);

} // namespace corvane
