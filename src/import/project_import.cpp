#include "import/project_import.h"

#include "import/angle_footage.h"
#include "import/clip_collector.h"
#include "import/final_cut_import_error.h"
#include "import/time_values.h"

#include <algorithm>
#include <set>

namespace corvane {

namespace {

template <class Texts>
std::string joined(const Texts& texts)
{
    std::string all;
    bool first = true;
    for (const auto& text : texts) {
        if (!first)
            all += ", ";
        all += text;
        first = false;
    }
    return all;
}

ImportedAngle importAngle(xml::Element element, ClipCollector& collector, AngleFootage* footage)
{
    const auto id = element.attribute("angleID");
    if (!id)
        throw FinalCutImportError::invalid("A camera angle is missing its identifier.");
    const std::string_view name = element.attribute("name").value_or("Unnamed angle");
    collector.begin(element, name);
    if (footage != nullptr)
        footage->begin(element);
    std::int64_t gaps = 0;
    for (const xml::Element child : element.children()) {
        collector.add(child);
        if (footage != nullptr)
            footage->add(child);
        gaps += child.named("gap") ? 1 : 0;
    }
    const AngleClips clips = collector.finish();
    return {std::string(*id), std::string(name), joined(clips.cameras), clips.count, gaps, clips.firstOffset};
}

bool idsDistinct(const std::vector<ImportedAngle>& angles)
{
    std::set<std::string_view> ids;
    return std::ranges::all_of(angles, [&ids](const ImportedAngle& angle) { return ids.insert(angle.id).second; });
}

std::string audioAngles(xml::Element original, const std::vector<ImportedAngle>& angles)
{
    std::set<std::string_view> ids;
    for (const xml::Element source : original.children()) {
        const auto id = source.attribute("angleID");
        if (source.named("mc-source") && id && suppliesAudio(source))
            ids.insert(*id);
    }
    std::vector<std::string> names;
    for (const ImportedAngle& angle : angles) {
        if (ids.contains(angle.id))
            names.push_back(angle.name);
    }
    return names.empty() ? "Not specified" : joined(names);
}

} // namespace

bool suppliesAudio(xml::Element mcSource)
{
    const std::string_view mode = mcSource.attribute("srcEnable").value_or("all");
    return mode == "all" || mode == "audio";
}

ImportedProject importProject(const ProjectOutline& outline, AngleFootage* footage)
{
    const double frameDuration =
        parseSeconds(outline.format ? outline.format->attribute("frameDuration") : std::nullopt);
    const double duration = parseSeconds(outline.sequence.attribute("duration"));
    if (!(frameDuration > 0) || !(duration > 0))
        throw FinalCutImportError::invalid("The project must have a positive duration and frame rate.");

    ClipCollector collector(outline.resources);
    std::vector<ImportedAngle> angles;
    for (const xml::Element child : outline.multicam.children()) {
        if (child.named("mc-angle"))
            angles.push_back(importAngle(child, collector, footage));
    }
    if (angles.size() < 2 || !idsDistinct(angles))
        throw FinalCutImportError::invalid("The multicam needs at least two uniquely identified angles.");

    ImportedProject imported;
    imported.name = outline.project.attribute("name").value_or("Untitled project");
    imported.version = outline.root.attribute("version").value_or("Unknown");
    imported.duration = duration;
    imported.framesPerSecond = 1 / frameDuration;
    imported.audioAngles = audioAngles(outline.original, angles);
    imported.angles = std::move(angles);
    imported.missingLocations.assign(collector.missingLocations().begin(), collector.missingLocations().end());
    return imported;
}

ImportedProject importProject(const xml::Document& document)
{
    return importProject(outlineProject(document));
}

ImportedProject importProject(std::string_view bytes)
{
    return importProject(xml::Document::parse(bytes));
}

} // namespace corvane
