#include "export/clip_parts.h"

#include "import/project_import.h"
#include "import/source_document.h"
#include "xml/writing.h"

namespace corvane {

namespace {

constexpr int partLevel = 5; // inside fcpxml, project, sequence, spine and mc-clip
constexpr std::string_view partIndent = "\n          ";

bool isClipSetting(std::string_view name)
{
    return name == "note" || name == "adjust-volume" || name == "adjust-panner" || name == "conform-rate";
}

bool isTrailing(std::string_view name)
{
    return name == "filter-audio" || name == "metadata";
}

std::size_t endsIndex(ClipEnds ends)
{
    return (ends.first ? 1U : 0U) + (ends.last ? 2U : 0U);
}

/// Removes from an adjust-volume the fades at those ends of the project that the clip does not touch.
void removeFades(xml::Tree& tree, xml::Element volume, ClipEnds ends)
{
    std::vector<xml::Element> fades;
    for (const xml::Element element : volume.descendants()) {
        if ((!ends.first && element.named("fadeIn")) || (!ends.last && element.named("fadeOut")))
            fades.push_back(element);
    }
    for (auto fade = fades.rbegin(); fade != fades.rend(); ++fade) // a nested fade goes before the one around it
        tree.remove(*fade);
}

/// The first of an angle's mc-source elements whose mode is "all" (the default) or `mode`, otherwise simply the first.
std::optional<xml::Element> sourceFor(const std::vector<xml::Element>& ofAngle, std::string_view mode)
{
    for (const xml::Element source : ofAngle) {
        const std::string_view enabled = source.attribute("srcEnable").value_or("all");
        if (enabled == "all" || enabled == mode)
            return source;
    }
    return ofAngle.empty() ? std::nullopt : std::optional(ofAngle.front());
}

constexpr std::string_view trackingIdStart = "cvtrack";

std::string newTrackingId(const IdentifierSource& identifiers)
{
    return std::string(trackingIdStart) + identifiers().digits();
}

/// Gives every tracking shape a new id and updates the references in the same element. Returns the new ids and their
/// indices.
std::map<std::string, std::size_t, std::less<>> renewTrackingIds(xml::Tree& tree, const IdentifierSource& identifiers)
{
    std::map<std::string, std::size_t, std::less<>> newIds;
    std::map<std::string, std::string, std::less<>> renewed;
    for (const xml::Element element : tree.root().descendants()) {
        const auto id = element.attribute("id");
        if (!element.named("tracking-shape") || !id)
            continue;
        const std::string newId = newTrackingId(identifiers);
        newIds.emplace(newId, newIds.size());
        renewed.insert_or_assign(std::string(*id), newId);
        tree.setAttribute(element, "id", newId);
    }
    for (const xml::Element element : tree.root().descendants()) {
        const auto tracking = element.attribute("tracking");
        const auto found = tracking ? renewed.find(*tracking) : renewed.end();
        if (found != renewed.end())
            tree.setAttribute(element, "tracking", found->second);
    }
    return newIds;
}

std::string settingText(xml::Element setting, ClipEnds ends)
{
    if (!setting.named("adjust-volume"))
        return partText(setting);
    xml::Tree volume(setting);
    removeFades(volume, volume.root(), ends);
    return partText(volume.root());
}

} // namespace

void appendPart(std::string& out, std::string_view text)
{
    out += partIndent;
    out += text;
}

std::string partText(xml::Element element)
{
    std::string text;
    xml::writeElement(text, element, partLevel);
    return text;
}

bool isCarriedOver(std::string_view elementName)
{
    return elementName == "mc-source" || isClipSetting(elementName) || isTrailing(elementName);
}

ClipParts::ClipParts(const CutEngine& engine, std::string_view audioAngle, IdentifierSource identifiers)
    : original_(engine.source->original), audioAngle_(audioAngle), identifiers_(std::move(identifiers))
{
    openTag_ = xml::openTag(original_, {"srcEnable", "offset", "start", "duration"}) + " srcEnable=\"all\"";
    closeTag_ = "</" + original_.name() + ">";
    for (const xml::Element child : original_.children()) {
        const auto angle = child.attribute("angleID");
        if (isTrailing(child.plainName()))
            appendPart(trailing_, partText(child));
        else if (child.named("mc-source") && angle)
            angleSources_[*angle].push_back(child);
    }
}

void ClipParts::addTo(WrittenSize& size, const std::vector<Cut>& cuts) const
{
    size.add(original_.name(), openTag_.size() + closeTag_.size(), cuts.size());
    for (const xml::Element child : original_.children()) {
        if (isTrailing(child.plainName()) || isClipSetting(child.plainName()))
            size.add(child.name(), settingText(child, {}).size(), cuts.size());
    }
    std::map<std::string_view, std::size_t> clips; // of each angle
    for (const Cut& cut : cuts)
        ++clips[cut.angle];
    const auto addSource = [&](std::string_view angle, Mode mode, std::size_t times) {
        if (times == 0)
            return;
        const xml::Tree source = angleTree(angle, mode, {});
        size.add(source.root().name(), xml::openTag(source.root(), {}).size(), times);
        for (const xml::Element child : source.root().children())
            size.add(child.name(), partText(child).size(), times);
    };
    for (const auto& [angle, count] : clips)
        addSource(angle, angle == audioAngle_ ? Mode::all : Mode::video, count);
    addSource(audioAngle_, Mode::audio, cuts.size() - clips[audioAngle_]);
}

void ClipParts::appendSources(std::string& out, const std::string& angle, ClipEnds ends)
{
    out += settings(ends);
    if (angle == audioAngle_) {
        append(out, angleSource(angle, Mode::all, ends));
        return;
    }
    append(out, angleSource(angle, Mode::video, {}));
    append(out, angleSource(audioAngle_, Mode::audio, ends));
}

const std::string& ClipParts::settings(ClipEnds ends)
{
    auto& known = settings_[endsIndex(ends)];
    if (known)
        return *known;
    std::string text;
    for (const xml::Element child : original_.children()) {
        if (isClipSetting(child.plainName()))
            appendPart(text, settingText(child, ends));
    }
    known = std::move(text);
    return *known;
}

const ClipParts::Template& ClipParts::angleSource(const std::string& angle, Mode mode, ClipEnds ends)
{
    const std::pair key(angle, static_cast<int>(mode) * 4 + static_cast<int>(endsIndex(ends)));
    const auto found = sources_.find(key);
    return found != sources_.end() ? found->second
                                   : sources_.emplace(key, makeAngleSource(angle, mode, ends)).first->second;
}

xml::Tree ClipParts::angleTree(std::string_view angle, Mode mode, ClipEnds ends) const
{
    xml::Tree source("mc-source");
    const xml::Element root = source.root();
    source.setAttribute(root, "angleID", angle);
    source.setAttribute(root, "srcEnable", mode == Mode::all ? "all" : mode == Mode::video ? "video" : "audio");
    const auto known = angleSources_.find(angle);
    const std::vector<xml::Element> ofAngle =
        known == angleSources_.end() ? std::vector<xml::Element>() : known->second;
    const auto audio = mode == Mode::video ? std::nullopt : sourceFor(ofAngle, "audio");
    const auto video = mode == Mode::audio ? std::nullopt : sourceFor(ofAngle, "video");
    for (const auto& replaced : {video, audio}) {
        if (replaced)
            source.declareNamespaces(*replaced);
    }
    if (audio) {
        for (const xml::Element child : audio->children()) {
            if (!child.named("audio-role-source"))
                continue;
            for (const xml::Element volume : source.append(root, child).children()) {
                if (volume.named("adjust-volume"))
                    removeFades(source, volume, ends);
            }
        }
    }
    if (video) {
        for (const xml::Element child : video->children()) {
            if (!child.named("audio-role-source"))
                source.append(root, child);
        }
    }

    return source;
}

ClipParts::Template ClipParts::makeAngleSource(std::string_view angle, Mode mode, ClipEnds ends) const
{
    xml::Tree source = angleTree(angle, mode, ends);
    const auto ids = renewTrackingIds(source, identifiers_);
    Template part;
    part.ids = ids.size();
    part.text = partText(source.root());
    const std::size_t idSize = ids.empty() ? 0 : ids.begin()->first.size();
    for (std::size_t at = 0; !ids.empty() && (at = part.text.find(trackingIdStart, at)) != std::string::npos; ++at) {
        const auto id = ids.find(std::string_view(part.text).substr(at, idSize));
        if (id != ids.end())
            part.places.emplace_back(at, id->second);
    }
    return part;
}

void ClipParts::append(std::string& out, const Template& part) const
{
    const std::size_t start = out.size() + partIndent.size();
    appendPart(out, part.text);
    std::vector<std::string> ids(part.ids);
    for (std::string& id : ids)
        id = newTrackingId(identifiers_);
    for (const auto& [place, number] : part.places)
        out.replace(start + place, ids[number].size(), ids[number]);
}

} // namespace corvane
