#pragma once

#include "export/export_files.h"
#include "session/presets.h"
#include "tools/loaded_file.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The saved preset with this name, ignoring case and surrounding white space. Throws PlatformError if there is none.
[[nodiscard]] EditPreset presetNamed(const std::vector<EditPreset>& saved, std::string_view name);

/// Applies the preset to `file`'s settings. Unlike in the window, where a person reads the message, every camera in the
/// preset must match exactly one angle; otherwise throws PlatformError and changes nothing.
void applyWholePreset(const EditPreset& preset, LoadedFile& file);

/// A rough edit that can be written.
struct DrawnEdit {
    std::vector<Cut> cuts;
    std::string xml;
};

/// Generates an edit with `file`'s settings. An audio fade may be longer than the first or last random shot; then it
/// tries again, at most twenty times, unless no other edit can help. Refuses what generation and export refuse.
[[nodiscard]] DrawnEdit drawEdit(const LoadedFile& file);

/// Writes both files of the edit to the folder without replacing anything. Fails like writeExportFiles.
[[nodiscard]] ExportFiles writeEdit(const std::string& folder, const LoadedFile& file, const DrawnEdit& edit);

} // namespace corvane
