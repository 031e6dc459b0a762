#include "import/project_import.h"

#include "base/text.h"
#include "import/clip_collector.h"
#include "import/final_cut_import_error.h"
#include "import/time_values.h"

#include <algorithm>
#include <set>
#include <utility>

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

constexpr std::ptrdiff_t mostAngles = 256;      // Final Cut plays at most 64
constexpr std::size_t longestAngleName = 4'096; // bytes; cuts and sentences repeat names and identifiers

/// Reads the angles of one document.
struct AngleReader {
    const MediaResources& resources;
    VisitBudget& budget;
    std::set<std::string_view> missing; ///< names of clips and media without a file
    std::size_t cameraNameBytes = 0;

    ImportedAngle read(xml::Element element);
    void addCameraNames(std::set<std::string_view>& names, const AssetFacts& asset, const std::string& angleName);
};

[[noreturn]] void refuse(const ImportedAngle& angle, const char* afterCamera)
{
    constexpr std::size_t shown = 60;
    throw FinalCutImportError::invalid("Camera " + withoutMiddle(angle.name, shown) + afterCamera);
}

ImportedAngle AngleReader::read(xml::Element element)
{
    const auto id = element.attribute("angleID");
    if (!id)
        throw FinalCutImportError::invalid("A camera angle is missing its identifier.");
    ImportedAngle angle;
    angle.id = *id;
    angle.name = element.attribute("name").value_or("Unnamed angle");
    if (angle.name.size() > longestAngleName)
        refuse(angle, " has a name of more than 4,096 bytes. Rename this angle in Final Cut and export XML again.");
    if (angle.id.size() > longestAngleName)
        refuse(
            angle,
            " has an identifier of more than 4,096 bytes. Make the multicam anew in Final Cut and export XML again.");
    std::set<std::string_view> cameras;
    std::set<const AssetFacts*> named;
    const AssetFacts* last = nullptr; // most clips are of the same recording as the one before
    ClipCollector(resources, budget).collect(element, angle.name, [&](const ClipCollector::Clip& clip) {
        const double offset = parseSeconds(clip.offset.value_or("0s"));
        angle.firstRecording = std::min(angle.firstRecording.value_or(offset), offset);
        ++angle.clipCount;
        const AssetFacts* asset = resources.asset(clip.ref);
        if (asset == nullptr) {
            missing.insert(clip.name.value_or("Unnamed clip"));
            return;
        }
        if (asset == std::exchange(last, asset) || !named.insert(asset).second)
            return;
        addCameraNames(cameras, *asset, angle.name);
        if (!asset->located)
            missing.insert(asset->name.value_or("Unnamed clip"));
    });
    angle.cameras = joined(cameras);
    angle.gapCount = std::ranges::count_if(element.children(), [](xml::Element child) { return child.named("gap"); });
    return angle;
}

void AngleReader::addCameraNames(
    std::set<std::string_view>& names, const AssetFacts& asset, const std::string& angleName)
{
    constexpr std::size_t most = std::size_t{16} << 20U; // for all angles, each of which may use the same asset
    for (const std::string_view name : asset.cameraNames) {
        if (names.insert(name).second)
            cameraNameBytes += name.size() + std::string_view(", ").size();
    }
    if (cameraNameBytes > most)
        throw FinalCutImportError::invalid(
            "Camera " + angleName +
            " has media with too many or too long camera names. Remove those that are not needed in Final "
            "Cut and export XML again.");
}

std::vector<ImportedAngle> readAngles(xml::Element multicam, AngleReader& reader)
{
    const auto isAngle = [](xml::Element child) { return child.named("mc-angle"); };
    const std::ptrdiff_t count = std::ranges::count_if(multicam.children(), isAngle);
    if (count > mostAngles)
        throw FinalCutImportError::invalid(
            "The multicam has " + std::to_string(count) +
            " angles, and at most 256 can be read. Remove angles in Final Cut and export XML again.");
    std::vector<ImportedAngle> angles;
    for (const xml::Element child : multicam.children()) {
        if (isAngle(child))
            angles.push_back(reader.read(child));
    }
    return angles;
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

ImportedProject importProject(const ProjectOutline& outline, VisitBudget& budget)
{
    const double frameDuration =
        parseSeconds(outline.format ? outline.format->attribute("frameDuration") : std::nullopt);
    const double duration = parseSeconds(outline.sequence.attribute("duration"));
    if (!(frameDuration > 0) || !(duration > 0))
        throw FinalCutImportError::invalid("The project must have a positive duration and frame rate.");

    AngleReader reader{outline.resources, budget, {}};
    std::vector<ImportedAngle> angles = readAngles(outline.multicam, reader);
    if (angles.size() < 2 || !idsDistinct(angles))
        throw FinalCutImportError::invalid("The multicam needs at least two uniquely identified angles.");

    ImportedProject imported;
    imported.name = outline.project.attribute("name").value_or("Untitled project");
    imported.version = outline.root.attribute("version").value_or("Unknown");
    imported.duration = duration;
    imported.framesPerSecond = 1 / frameDuration;
    imported.audioAngles = audioAngles(outline.original, angles);
    imported.angles = std::move(angles);
    imported.missingLocations.assign(reader.missing.begin(), reader.missing.end());
    return imported;
}

ImportedProject importProject(const xml::Document& document)
{
    VisitBudget budget;
    return importProject(outlineProject(document), budget);
}

ImportedProject importProject(std::string_view bytes)
{
    return importProject(xml::Document::parse(bytes));
}

} // namespace corvane
