#include "export/source_items.h"

#include "import/final_cut_import_error.h"
#include "import/source_document.h"
#include "import/time_values.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

bool isRangedAnnotation(std::string_view name)
{
    return name == "keyword" || name == "rating" || name == "analysis-marker";
}

Frames framesOf(const CutEngine& engine, std::string_view time)
{
    return alignedFrames(time, engine.frameNumerator, engine.frameDenominator);
}

/// Defaults are converted to text too, so that there is only one check for what is out of range.
Frames framesOf(const CutEngine& engine, Frames standard)
{
    return framesOf(engine, timeString(standard, engine.frameNumerator, engine.frameDenominator));
}

Frames annotationStart(const CutEngine& engine, xml::Element annotation)
{
    const auto start = annotation.attribute("start");
    return start ? framesOf(engine, *start) : framesOf(engine, engine.sourceStart);
}

Frames annotationDuration(const CutEngine& engine, xml::Element annotation)
{
    if (const auto duration = annotation.attribute("duration"))
        return framesOf(engine, *duration);
    return isRangedAnnotation(annotation.plainName()) ? framesOf(engine, engine.length) : 0;
}

void visitFades(xml::Element volume, const std::function<void(xml::Element)>& visit)
{
    for (const xml::Element each : volume.descendants()) {
        if (each.named("fadeIn") || each.named("fadeOut"))
            visit(each);
    }
}

} // namespace

bool isConnectedItem(std::string_view elementName)
{
    constexpr std::array<std::string_view, 12> names = {"asset-clip",   "audio",    "video",   "clip",
                                                        "sync-clip",    "ref-clip", "spine",   "title",
                                                        "live-drawing", "caption",  "mc-clip", "audition"};
    return std::ranges::find(names, elementName) != names.end();
}

bool isAnnotation(std::string_view elementName)
{
    return isRangedAnnotation(elementName) || elementName == "marker" || elementName == "chapter-marker" ||
           elementName == "hidden-clip-marker";
}

double connectedOffset(xml::Element item)
{
    return parseSeconds(item.attribute("offset").value_or("0s"));
}

AnnotationTimes annotationTimes(const CutEngine& engine, xml::Element annotation)
{
    AnnotationTimes times;
    times.start = annotationStart(engine, annotation);
    times.duration = annotationDuration(engine, annotation);
    times.isRange = isRangedAnnotation(annotation.plainName()) && times.duration > 0;
    return times;
}

void forEachAudioFade(
    const CutEngine& engine, std::string_view audioAngle, const std::function<void(xml::Element)>& visit)
{
    for (const xml::Element source : engine.source->original.children()) {
        if (!source.named("mc-source") || source.attribute("angleID") != audioAngle)
            continue;
        for (const xml::Element child : source.children()) {
            if (child.named("adjust-volume"))
                visitFades(child, visit);
            if (!child.named("audio-role-source"))
                continue;
            for (const xml::Element volume : child.children()) {
                if (volume.named("adjust-volume"))
                    visitFades(volume, visit);
            }
        }
    }
}

double fadeLength(xml::Element fade)
{
    return parseSeconds(fade.attribute("duration"));
}

SourceHead sourceHead(const CutEngine& engine)
{
    const xml::Element root = *engine.source->document.root();
    const auto version = root.attribute("version");
    const auto resources = root.firstChild("resources");
    if (!version || !resources)
        throw FinalCutImportError::invalid(
            "The source project does not name its FCPXML version. Export XML from Final Cut again.");
    return {*version, *resources};
}

std::vector<RefusedSource> refusedSources(const CutEngine& engine, std::string_view audioAngle, std::size_t most)
{
    std::vector<RefusedSource> refused;
    if (!engine.source)
        return refused;
    const auto reads = [&](std::optional<xml::Element> item, std::string_view attribute, const auto& read) {
        if (refused.size() == most)
            return false;
        try {
            (void)read();
            return true;
        } catch (const FinalCutImportError& refusal) {
            refused.push_back({item, attribute, refusal.what()});
            return false;
        }
    };
    forEachAudioFade(
        engine, audioAngle, [&](xml::Element fade) { reads(fade, "duration", [&] { return fadeLength(fade); }); });
    reads(std::nullopt, "version", [&] { return sourceHead(engine); });
    std::vector<xml::Element> annotations;
    for (const xml::Element item : engine.source->original.children()) {
        if (isConnectedItem(item.plainName()))
            reads(item, "offset", [&] { return connectedOffset(item); });
        else if (isAnnotation(item.plainName()))
            annotations.push_back(item);
    }
    for (const xml::Element item : annotations) {
        if (reads(item, "start", [&] { return annotationStart(engine, item); }))
            reads(item, "duration", [&] { return annotationDuration(engine, item); });
    }
    return refused;
}

} // namespace corvane
