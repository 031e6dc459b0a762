#include "export/rough_edit_writer.h"

#include "base/numbers.h"
#include "engine/coverage_report.h"
#include "engine/validation.h"
#include "export/clip_annotations.h"
#include "export/clip_parts.h"
#include "export/source_items.h"
#include "export/written_size.h"
#include "import/final_cut_import_error.h"
#include "import/source_document.h"
#include "import/time_values.h"
#include "xml/tree.h"
#include "xml/writing.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

[[noreturn]] void refuse(const std::string& message)
{
    throw FinalCutImportError::invalid(message);
}

void checkCuts(const CutEngine& engine, const std::vector<Cut>& cuts)
{
    if (cuts.empty())
        refuse("Generate a rough edit first.");
    const auto fault = cutListFault(engine, cuts);
    if (fault == CutListFault::invalidCut)
        refuse("The cut list contains invalid timing or unavailable footage.");
    if (fault == CutListFault::incomplete)
        refuse("The cut list does not cover the entire project.");
}

/// The fades that the audio angle's sources hold, in document order, must fit into the first and last cut.
void checkAudioFades(const CutEngine& engine, const std::vector<Cut>& cuts, std::string_view audioAngle)
{
    forEachAudioFade(engine, audioAngle, [&](xml::Element fade) {
        const double length = fadeLength(fade);
        const Cut& holder = fade.named("fadeIn") ? cuts.front() : cuts.back();
        if (engine.seconds(holder.duration) + fadeTolerance < length)
            refuse(
                "An audio fade extends across a camera cut. Set the opening or closing shot to at least " +
                fixed(std::ceil(length), 0) + " seconds to keep the fade intact.");
    });
}

/// The text of the project without its spine's contents, and the position at which these are inserted.
struct ProjectText {
    std::string before;
    std::string after;
};

ProjectText projectText(const SourceDocument& source)
{
    xml::Tree project(source.project, xml::Tree::Copy::startTag);
    for (auto above = source.project.parent(); above && above->parent(); above = above->parent())
        project.declareNamespaces(*above); // libraries and events are omitted, but their namespaces are kept
    project.removeAttribute(project.root(), "uid");
    project.removeAttribute(project.root(), "modDate");
    if (const auto name = source.project.attribute("name"))
        project.setAttribute(project.root(), "name", std::string(*name) + " Corvane");
    const auto spine = source.sequence.firstChild("spine");
    const auto sequence = project.appendChildren(project.root(), source.project, source.sequence);
    const auto newSpine = sequence && spine ? project.appendChildren(*sequence, source.sequence, *spine) : std::nullopt;
    if (!newSpine)
        refuse("The project has no timeline to export.");
    // A placeholder that cannot occur in the document.
    const std::string place = "clips-" + randomIdentifiers()().digits();
    project.appendInstruction(*newSpine, place);
    std::string text;
    xml::writeElement(text, project.root(), 1);
    const std::string mark = "<?" + place + "?>";
    const std::size_t at = text.find(mark);
    return {text.substr(0, at), text.substr(at + mark.size())};
}

void appendClips(
    std::string& out, const CutEngine& engine, const std::vector<Cut>& cuts, std::string_view audioAngle,
    const IdentifierSource& identifiers)
{
    constexpr std::string_view indent = "\n        ";
    constexpr std::size_t timesOfClip = 200; // in bytes, roughly
    const auto appendTime = [&](Frames frames) {
        appendTimeString(out, frames, engine.frameNumerator, engine.frameDenominator);
    };
    WrittenSize size(cuts.size());
    size.addOnce(out.size());
    ClipParts parts(engine, audioAngle, identifiers);
    parts.addTo(size, cuts);
    const ClipAnnotations annotations(engine, cuts, size);
    size.check();
    out.reserve(size.bytes() + cuts.size() * timesOfClip);
    for (std::size_t clip = 0; clip < cuts.size(); ++clip) {
        const Cut& cut = cuts[clip];
        if (clip > 0)
            out += indent;
        out += parts.openTag();
        out += " offset=\"";
        appendTime(engine.timelineStart + cut.start);
        out += "\" start=\"";
        appendTime(engine.sourceStart + cut.start);
        out += "\" duration=\"";
        appendTime(cut.duration);
        out += "\">";
        parts.appendSources(out, cut.angle, {cut.start == 0, cut.start + cut.duration == engine.length});
        annotations.append(out, clip);
        parts.appendTrailing(out);
        out += indent;
        out += parts.closeTag();
        size.check(out.size());
    }
}

} // namespace

std::string roughEditXML(
    const CutEngine& engine, const std::vector<Cut>& cuts, std::optional<std::string_view> audioAngle,
    const IdentifierSource& identifiers)
{
    const std::string_view audio = audioAngle.value_or(engine.audioID);
    checkContinuousAudio(engine, audio);
    checkCuts(engine, cuts);
    if (!engine.source)
        refuse("The project has no source document to export.");
    checkAudioFades(engine, cuts, audio);

    const SourceHead head = sourceHead(engine);
    xml::Tree root("fcpxml");
    root.declareNamespaces(*engine.source->document.root());
    root.setAttribute(root.root(), "version", head.version);

    const ProjectText project = projectText(*engine.source);
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + xml::openTag(root.root()) + ">\n  ";
    xml::writeElement(out, head.resources, 1);
    out += "\n  " + project.before;
    appendClips(out, engine, cuts, audio, identifiers);
    out += project.after + "\n</fcpxml>\n";
    return out;
}

} // namespace corvane
