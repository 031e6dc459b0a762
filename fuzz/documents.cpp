// Bytes as a document: read into the summary and the engine, and written again as a single cut.

#include "export/carry_over.h"
#include "export/rough_edit_writer.h"
#include "fuzz/target.h"
#include "import/final_cut_import_error.h"
#include "import/project_import.h"
#include "import/project_loading.h"

std::string runFuzzInput(std::string_view bytes)
{
    using namespace corvane;
    const LoadedProject loaded = loadProject(bytes);
    if (importProject(bytes) != loaded.imported)
        return "one reading for both passes answers as two do";
    for (const auto* coverage : {&loaded.engine.coverage, &loaded.engine.audioCoverage}) {
        for (const auto& [angle, stretches] : *coverage) {
            Frames position = -1;
            for (const FrameRange& stretch : stretches) {
                if (stretch.start <= position || stretch.end <= stretch.start || stretch.end > loaded.engine.length)
                    return "coverage is in order, apart and inside the project";
                position = stretch.end;
            }
        }
    }
    (void)carryOver(loaded.engine);
    for (const auto& angle : loaded.imported.angles) {
        const Cut whole = {{}, angle.id, 0, loaded.engine.length};
        try {
            const std::string written = roughEditXML(loaded.engine, {whole}, angle.id);
            if (loadProject(written).engine.length != loaded.engine.length)
                return "a project of one cut is read again as long as it was";
        } catch (const FinalCutImportError&) { // not covered, not continuous …
            continue;
        }
    }
    return "";
}
