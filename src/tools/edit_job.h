#pragma once

#include "export/export_files.h"
#include "session/presets.h"
#include "tools/loaded_file.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The saved preset of that name, case and surrounding blanks aside. Refuses with PlatformError when there is none.
[[nodiscard]] EditPreset presetNamed(const std::vector<EditPreset>& saved, std::string_view name);

/// Puts the preset on `file`'s settings. Unlike in the window, where a person reads the notice, every camera that the
/// preset asks for must be found on just one angle: else it refuses with PlatformError and changes nothing.
void applyWholePreset(const EditPreset& preset, LoadedFile& file);

/// A rough edit that can be written.
struct DrawnEdit {
    std::vector<Cut> cuts;
    std::string xml;
};

/// Draws an edit with `file`'s settings. A fade of the sound may be longer than the first or last shot that was drawn;
/// then it draws again, at most twenty times, unless no drawing can mend that. Refuses as generation and export do.
[[nodiscard]] DrawnEdit drawEdit(const LoadedFile& file);

/// Writes both files of the edit into the folder, over nothing. Fails as writeExportFiles.
[[nodiscard]] ExportFiles writeEdit(const std::string& folder, const LoadedFile& file, const DrawnEdit& edit);

} // namespace corvane
