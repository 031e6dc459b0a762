#include "import/clip_markers.h"

#include "import/final_cut_import_error.h"
#include "import/source_document.h"
#include "import/time_values.h"

#include <algorithm>
#include <optional>

namespace corvane {

namespace {

std::optional<Frames> projectFrame(const CutEngine& engine, xml::Element marker)
{
    const auto start = marker.attribute("start");
    if (!start)
        return std::nullopt;
    try {
        return alignedFrames(*start, engine.frameNumerator, engine.frameDenominator) - engine.sourceStart;
    } catch (const FinalCutImportError&) {
        return std::nullopt;
    }
}

} // namespace

std::vector<ClipMarker> clipMarkers(const CutEngine& engine)
{
    std::vector<ClipMarker> markers;
    if (!engine.source)
        return markers;
    for (const xml::Element child : engine.source->original.children()) {
        if (!child.named("marker") && !child.named("chapter-marker"))
            continue;
        const auto frame = projectFrame(engine, child);
        if (frame && *frame >= 0 && *frame < engine.length)
            markers.push_back({*frame, std::string(child.attribute("value").value_or(""))});
    }
    std::ranges::stable_sort(markers, {}, &ClipMarker::frame);
    return markers;
}

} // namespace corvane
