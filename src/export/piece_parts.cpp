#include "export/piece_parts.h"

#include "import/project_import.h"
#include "import/source_document.h"
#include "xml/writing.h"

namespace corvane {

namespace {

constexpr int partLevel = 5; // fcpxml, project, sequence, spine, mc-clip, and inside it
constexpr std::string_view partIndent = "\n          ";

bool isClipSetting(std::string_view name)
{
    return name == "note" || name == "adjust-volume" || name == "adjust-panner" || name == "conform-rate";
}

bool isTrailing(std::string_view name)
{
    return name == "filter-audio" || name == "metadata";
}

std::size_t endsIndex(PieceEnds ends)
{
    return (ends.first ? 1U : 0U) + (ends.last ? 2U : 0U);
}

/// The first fade of that name anywhere in an adjust-volume directly inside `parent`.
std::optional<xml::Element> volumeFade(xml::Element parent, std::string_view name)
{
    for (const xml::Element volume : parent.children()) {
        if (!volume.named("adjust-volume"))
            continue;
        for (const xml::Element fade : volume.descendants()) {
            if (fade.named(name))
                return fade;
        }
    }
    return std::nullopt;
}

void removeVolumeFades(xml::Tree& tree, xml::Element parent, PieceEnds ends)
{
    for (const auto& [name, keep] : {std::pair("fadeIn", ends.first), std::pair("fadeOut", ends.last)}) {
        while (!keep) {
            const auto fade = volumeFade(parent, name);
            if (!fade)
                break;
            tree.remove(*fade);
        }
    }
}

/// The mc-source elements of an angle: the first whose mode is "all" or `mode` (absent counts as "all"), else the
/// first at all.
std::optional<xml::Element> sourceFor(xml::Element original, std::string_view angle, std::string_view mode)
{
    std::optional<xml::Element> any;
    for (const xml::Element child : original.children()) {
        if (!child.named("mc-source") || child.attribute("angleID") != angle)
            continue;
        const std::string_view enabled = child.attribute("srcEnable").value_or("all");
        if (enabled == "all" || enabled == mode)
            return child;
        if (!any)
            any = child;
    }
    return any;
}

/// Gives every tracking shape a new id and lets the references in the same element follow; returns the new ids.
std::vector<std::string> renewTrackingIds(xml::Tree& tree, const IdentifierSource& identifiers)
{
    std::vector<std::string> newIds;
    std::map<std::string, std::string, std::less<>> renewed;
    for (const xml::Element element : tree.root().descendants()) {
        const auto id = element.attribute("id");
        if (!element.named("tracking-shape") || !id)
            continue;
        newIds.push_back("cvtrack" + identifiers().digits());
        renewed.insert_or_assign(std::string(*id), newIds.back());
        tree.setAttribute(element, "id", newIds.back());
    }
    for (const xml::Element element : tree.root().descendants()) {
        const auto tracking = element.attribute("tracking");
        const auto found = tracking ? renewed.find(*tracking) : renewed.end();
        if (found != renewed.end())
            tree.setAttribute(element, "tracking", found->second);
    }
    return newIds;
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

PieceParts::PieceParts(const CutEngine& engine, std::string_view audioAngle, IdentifierSource identifiers)
    : original_(engine.source->original), audioAngle_(audioAngle), identifiers_(std::move(identifiers))
{
    openTag_ = xml::openTag(original_, {"srcEnable", "offset", "start", "duration"}) + " srcEnable=\"all\"";
    closeTag_ = "</" + original_.name() + ">";
    for (const xml::Element child : original_.children()) {
        if (isTrailing(child.plainName()))
            appendPart(trailing_, partText(child));
    }
}

void PieceParts::appendSources(std::string& out, const std::string& angle, PieceEnds ends)
{
    out += settings(ends);
    if (angle == audioAngle_) {
        append(out, angleSource(angle, Mode::all, ends));
        return;
    }
    append(out, angleSource(angle, Mode::video, {}));
    append(out, angleSource(audioAngle_, Mode::audio, ends));
}

const std::string& PieceParts::settings(PieceEnds ends)
{
    auto& known = settings_[endsIndex(ends)];
    if (known)
        return *known;
    // Inside a copy of the multicam clip, where its volume's fades can be found and taken away.
    xml::Tree clip(original_, xml::Tree::Copy::startTag);
    for (const xml::Element child : original_.children()) {
        if (isClipSetting(child.plainName()))
            clip.append(clip.root(), child);
    }
    removeVolumeFades(clip, clip.root(), ends);
    std::string text;
    for (const xml::Element child : clip.root().children())
        appendPart(text, partText(child));
    known = std::move(text);
    return *known;
}

const PieceParts::Template& PieceParts::angleSource(const std::string& angle, Mode mode, PieceEnds ends)
{
    const std::pair key(angle, static_cast<int>(mode) * 4 + static_cast<int>(endsIndex(ends)));
    const auto found = sources_.find(key);
    return found != sources_.end() ? found->second
                                   : sources_.emplace(key, makeAngleSource(angle, mode, ends)).first->second;
}

PieceParts::Template PieceParts::makeAngleSource(std::string_view angle, Mode mode, PieceEnds ends) const
{
    xml::Tree source("mc-source");
    const xml::Element root = source.root();
    source.setAttribute(root, "angleID", angle);
    source.setAttribute(root, "srcEnable", mode == Mode::all ? "all" : mode == Mode::video ? "video" : "audio");
    const auto audio = mode == Mode::video ? std::nullopt : sourceFor(original_, angle, "audio");
    const auto video = mode == Mode::audio ? std::nullopt : sourceFor(original_, angle, "video");
    for (const auto& replaced : {video, audio}) {
        if (replaced)
            source.declareNamespaces(*replaced);
    }
    if (audio) {
        for (const xml::Element child : audio->children()) {
            if (child.named("audio-role-source"))
                removeVolumeFades(source, source.append(root, child), ends);
        }
    }
    if (video) {
        for (const xml::Element child : video->children()) {
            if (!child.named("audio-role-source"))
                source.append(root, child);
        }
    }

    const std::vector<std::string> ids = renewTrackingIds(source, identifiers_);
    Template part;
    part.ids = ids.size();
    part.text = partText(root);
    for (std::size_t n = 0; n < ids.size(); ++n) {
        for (std::size_t at = part.text.find(ids[n]); at != std::string::npos; at = part.text.find(ids[n], at + 1))
            part.places.emplace_back(at, n);
    }
    return part;
}

void PieceParts::append(std::string& out, const Template& part) const
{
    const std::size_t start = out.size() + partIndent.size();
    appendPart(out, part.text);
    std::vector<std::string> ids(part.ids);
    for (std::string& id : ids)
        id = "cvtrack" + identifiers_().digits();
    for (const auto& [place, number] : part.places)
        out.replace(start + place, ids[number].size(), ids[number]);
}

} // namespace corvane
