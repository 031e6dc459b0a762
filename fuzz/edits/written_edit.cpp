#include "fuzz/edits/written_edit.h"

#include "fuzz/edits/plain_coverage.h"
#include "xml/writing.h"

#include <algorithm>
#include <map>
#include <set>

namespace corvane::test {

namespace {

struct Timeline {
    xml::Element resources;
    xml::Element sequence;
    xml::Element spine;
    Ticks frame;

    explicit Timeline(const xml::Document& document)
        : resources(*document.root()->firstChild("resources")),
          sequence(*document.root()->firstChild("project")->firstChild("sequence")),
          spine(*sequence.firstChild("spine")),
          frame(ticksOf(*resources.firstChild("format")->attribute("frameDuration")))
    {
    }
};

Ticks timeOf(xml::Element element, std::string_view attribute, Ticks otherwise = 0)
{
    const auto text = element.attribute(attribute);
    return text ? ticksOf(*text) : otherwise;
}

std::string textOf(xml::Element element)
{
    std::string text;
    xml::writeElement(text, element, 0);
    return text;
}

struct Clip {
    xml::Element element;
    Ticks from, to; ///< source time
};

bool isRanged(xml::Element annotation)
{
    return annotation.named("keyword") || annotation.named("rating") || annotation.named("analysis-marker");
}

/// Each named item, with the clips that contain it.
std::multimap<std::string, std::pair<const Clip*, xml::Element>> namedThings(const std::vector<Clip>& clips)
{
    std::multimap<std::string, std::pair<const Clip*, xml::Element>> things;
    for (const Clip& clip : clips) {
        for (const xml::Element child : clip.element.children()) {
            if (const auto name = child.attribute("name"))
                things.emplace(*name, std::pair(&clip, child));
        }
    }
    return things;
}

/// Checks that the titles and annotations of the source's clip are where they were, in the clips that play there, and
/// nowhere else.
std::string brokenSharing(xml::Element original, Ticks frame, const std::vector<Clip>& clips)
{
    auto things = namedThings(clips);
    const Ticks first = clips.front().from;
    for (const xml::Element child : original.children()) {
        const auto name = child.attribute("name");
        if (!name)
            continue;
        const auto [begin, end] = things.equal_range(std::string(*name));
        const auto copies = std::distance(begin, end);
        if (child.named("title")) {
            const Ticks offset = std::max(timeOf(child, "offset"), first);
            if (copies != 1 || textOf(begin->second.second) != textOf(child))
                return "a connected item stands once, unchanged";
            const Clip& clip = *begin->second.first;
            if (offset < clip.from || (offset >= clip.to && &clip != &clips.back()))
                return "a connected item hangs on the clip that plays at its place";
        } else if (const Ticks from = timeOf(child, "start", first);
                   isRanged(child) && timeOf(child, "duration", frame) > 0) {
            const Ticks to = from + timeOf(child, "duration", clips.back().to - first);
            std::multiset<Ticks> painted; // one entry per frame
            for (auto each = begin; each != end; ++each) {
                const auto& [clip, copy] = each->second;
                const Ticks copyFrom = timeOf(copy, "start");
                const Ticks copyTo = copyFrom + timeOf(copy, "duration");
                if (copyFrom < clip->from || copyTo > clip->to || copyFrom >= copyTo)
                    return "a range is trimmed to its clip";
                for (Ticks at = copyFrom; at < copyTo; at += frame)
                    painted.insert(at);
            }
            std::multiset<Ticks> meant;
            for (Ticks at = from; at < to; at += frame) {
                if (at >= first && at < clips.back().to)
                    meant.insert(at);
            }
            if (painted != meant)
                return "the parts of a range make up the range";
        } else {
            const bool inside = from >= first && from < clips.back().to;
            if (copies != (inside ? 1 : 0))
                return "a point stands once, or not at all when it is outside";
            if (inside && (from < begin->second.first->from || from >= begin->second.first->to ||
                           textOf(begin->second.second) != textOf(child)))
                return "a point stands in the clip that plays there, unchanged";
        }
        things.erase(begin, end);
    }
    return things.empty() ? "" : "nothing is in the clips that was not in the source";
}

std::string brokenInside(const std::vector<Clip>& clips)
{
    std::set<std::string_view> shapes;
    for (const Clip& clip : clips) {
        std::set<std::string_view> shapesHere;
        for (const xml::Element inside : clip.element.descendants()) {
            if (inside.named("fadeIn") && &clip != &clips.front())
                return "sound fades in at the beginning only";
            if (inside.named("fadeOut") && &clip != &clips.back())
                return "sound fades out at the end only";
            if (inside.named("tracking-shape") && !shapes.insert(*inside.attribute("id")).second)
                return "every tracking shape has its own id";
            if (inside.named("tracking-shape"))
                shapesHere.insert(*inside.attribute("id"));
        }
        for (const xml::Element inside : clip.element.descendants()) {
            if (const auto tracked = inside.attribute("tracking"); tracked && !shapesHere.contains(*tracked))
                return "what tracks a shape follows the copy in its own clip";
        }
    }
    return "";
}

} // namespace

std::string brokenWrittenPromise(
    std::string_view source, std::string_view written, const std::vector<Cut>& cuts, std::string_view audio)
{
    const xml::Document sourceDocument = xml::Document::parse(source);
    const xml::Document writtenDocument = xml::Document::parse(written);
    const Timeline before(sourceDocument);
    const Timeline after(writtenDocument);
    const xml::Element original = *before.spine.firstChild("mc-clip");
    if (textOf(before.resources) != textOf(after.resources))
        return "the resources are the source's";
    for (const char* kept : {"format", "duration", "tcStart", "tcFormat"}) {
        if (before.sequence.attribute(kept) != after.sequence.attribute(kept))
            return "the sequence is the source's";
    }

    std::vector<Clip> clips;
    const Ticks sourceStart = timeOf(original, "start");
    Ticks position = timeOf(original, "offset");
    const Ticks toSource = sourceStart - position;
    auto cut = cuts.begin();
    for (const xml::Element element : after.spine.children()) {
        if (!element.named("mc-clip") || cut == cuts.end())
            return "there is a clip for every cut and nothing else";
        const Ticks duration = timeOf(element, "duration");
        if (timeOf(element, "offset") != position || timeOf(element, "start") != position + toSource)
            return "the clips follow each other and show the source at its own place";
        if (duration != cut->duration * before.frame || position + toSource - sourceStart != cut->start * before.frame)
            return "the clips are the cuts";
        std::string sources;
        for (const xml::Element child : element.children()) {
            if (child.named("mc-source"))
                sources +=
                    std::string(*child.attribute("angleID")) + " " + std::string(*child.attribute("srcEnable")) + ";";
        }
        const std::string sound(audio);
        if (sources != (cut->angle == sound ? sound + " all;" : cut->angle + " video;" + sound + " audio;"))
            return "a clip shows its cut's angle and plays the audio angle";
        clips.push_back({element, position + toSource, position + toSource + duration});
        position += duration;
        ++cut;
    }
    if (cut != cuts.end() || position != timeOf(original, "offset") + timeOf(original, "duration"))
        return "the clips fill the project";
    const std::string sharing = brokenSharing(original, before.frame, clips);
    return sharing.empty() ? brokenInside(clips) : sharing;
}

} // namespace corvane::test
