#pragma once

#include "analysis/project_check.h"
#include "import/project_loading.h"
#include "session/starting_settings.h"

#include <string>

namespace corvane {

/// A project file that could be read: what the window would have loaded and would start with.
struct LoadedFile {
    std::string path; ///< as it was given
    ImportedProject project;
    CutEngine engine;
    EditSettings settings; ///< those that an import puts on screen
};

/// Reads a .fcpxml file or a .fcpxmld bundle. Fails with PlatformError or FinalCutImportError, in the window's words.
[[nodiscard]] LoadedFile loadFile(const std::string& path);

/// The path from the working directory where it lies inside, otherwise as it is.
[[nodiscard]] std::string shownPath(const std::string& path);

} // namespace corvane
