// The input is a document: it is read into the summary and the engine, and written as a single cut, which this
// program's parser and, if it reads the input, another one read.

#include "export/carry_over.h"
#include "export/rough_edit_writer.h"
#include "fuzz/target.h"
#include "import/final_cut_import_error.h"
#include "import/project_import.h"
#include "import/project_loading.h"

#ifdef CORVANE_EXPAT
#include <expat.h>

#include <memory>
#endif

namespace {

bool otherParserReads([[maybe_unused]] std::string_view document)
{
#ifdef CORVANE_EXPAT
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr), XML_ParserFree);
    return XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), 1) == XML_STATUS_OK;
#else
    return true;
#endif
}

} // namespace

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
    // libxml2 allows characters in names that expat, which follows an older edition of XML 1.0, refuses.
    const bool eitherParserReads = otherParserReads(bytes);
    int written = 0;
    for (const auto& angle : loaded.imported.angles) {
        constexpr int most = 10; // because each writes the whole document
        if (written == most)
            break;
        const Cut whole = {{}, angle.id, 0, loaded.engine.length};
        try {
            const std::string bytesWritten = roughEditXML(loaded.engine, {whole}, angle.id);
            ++written;
            if (loadProject(bytesWritten).engine.length != loaded.engine.length)
                return "a project of one cut is read again as long as it was";
            if (eitherParserReads && !otherParserReads(bytesWritten))
                return "another parser reads what was written";
        } catch (const FinalCutImportError&) { // not covered, not continuous …
            continue;
        }
    }
    return "";
}
