// The input is a list of presets: it is read, written, read back and sorted, and the first preset is applied to a
// project.

#include "session/presets.h"

#include "fuzz/target.h"
#include "import/project_loading.h"
#include "support/documents.h"

#include <algorithm>

std::string runFuzzInput(std::string_view bytes)
{
    using namespace corvane;
    std::vector<EditPreset> presets = decodePresets(bytes);
    if (decodePresets(encodePresets(presets)) != presets)
        return "what was written is read again";
    sortPresets(presets);
    const auto sorted = presets;
    sortPresets(presets);
    if (presets != sorted)
        return "a sorted list stays as it is";
    static const LoadedProject project = loadProject(test::document());
    for (const EditPreset& preset : presets) {
        EditSettings settings = appliedPreset(preset, project.imported, project.engine, {}).settings;
        (void)makePreset(preset.id, preset.name, project.imported, project.engine, settings);
    }
    return "";
}
