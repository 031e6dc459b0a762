#include "export/clip_annotations.h"

#include "export/clip_parts.h"
#include "export/source_items.h"
#include "import/source_document.h"
#include "import/time_values.h"
#include "xml/writing.h"

#include <algorithm>
#include <numeric>
#include <ranges>
#include <string_view>

namespace corvane {

bool isSharedOut(std::string_view elementName)
{
    return isConnectedItem(elementName) || isAnnotation(elementName);
}

ClipAnnotations::ClipAnnotations(const CutEngine& engine, const std::vector<Cut>& cuts, WrittenSize& size)
    : engine_(engine), cuts_(cuts), size_(size), clips_(cuts.size())
{
    byId_.resize(cuts.size());
    std::iota(byId_.begin(), byId_.end(), std::size_t{0});
    std::ranges::sort(byId_, {}, [&](std::size_t clip) { return cuts[clip].id; });
    addConnectedItems();
    addAnnotations();
}

void ClipAnnotations::append(std::string& out, std::size_t clip) const
{
    const auto appendTime = [&](Frames frames) {
        appendTimeString(out, frames, engine_.frameNumerator, engine_.frameDenominator);
    };
    const Frames clipStart = engine_.sourceStart + cuts_[clip].start;
    for (const std::uint32_t number : clips_[clip]) {
        const Text& text = texts_[number];
        if (!text.range) {
            appendPart(out, text.whole);
            continue;
        }
        const Frames start = std::max(text.range->start, clipStart);
        appendPart(out, text.openTag);
        out += " start=\"";
        appendTime(start);
        out += "\" duration=\"";
        appendTime(std::min(text.range->end, clipStart + cuts_[clip].duration) - start);
        out += '"';
        out += text.rest;
    }
}

void ClipAnnotations::addConnectedItems()
{
    for (const xml::Element item : engine_.source->original.children()) {
        if (!isConnectedItem(item.plainName()))
            continue;
        placeConnectedItem(item, connectedOffset(item));
    }
}

void ClipAnnotations::addAnnotations()
{
    for (const xml::Element annotation : engine_.source->original.children()) {
        if (!isAnnotation(annotation.plainName()))
            continue;
        const AnnotationTimes times = annotationTimes(engine_, annotation);
        if (times.isRange)
            placeRange(annotation, {times.start, times.start + times.duration});
        else
            placePoint(annotation, times.start);
    }
}

ClipAnnotations::Text ClipAnnotations::rangeText(xml::Element annotation, FrameRange range)
{
    std::string openTag = xml::openTag(annotation, {"start", "duration"});
    if (xml::isEmpty(annotation))
        return {{}, std::move(openTag), "/>", range};
    const std::string whole = partText(annotation);
    return {{}, std::move(openTag), whole.substr(whole.find('>')), range};
}

/// Once the project is too large, items are only counted, so that they take no memory.
template <class Clips>
void ClipAnnotations::place(xml::Element item, Text text, const Clips& clips)
{
    constexpr std::size_t leastTimes = std::string_view(R"( start="0/1s" duration="1/1s")").size();
    const std::size_t bytes = text.whole.size() + text.openTag.size() + text.rest.size();
    size_.add(item.name(), bytes + (text.range ? leastTimes : 0), std::ranges::size(clips));
    if (size_.isTooLarge())
        return;
    texts_.push_back(std::move(text));
    for (const std::size_t clip : clips)
        clips_[clip].push_back(static_cast<std::uint32_t>(texts_.size() - 1));
}

void ClipAnnotations::placeConnectedItem(xml::Element item, double offset)
{
    constexpr double tolerance = 0.00000001;
    const double fromStart = offset - engine_.seconds(engine_.sourceStart);
    const auto after = std::ranges::partition_point(
        cuts_, [&](const Cut& cut) { return engine_.seconds(cut.start) <= fromStart + tolerance; });
    const Cut& owner = after == cuts_.begin() ? cuts_.front() : *std::prev(after);
    place(item, {partText(item), {}, {}, {}}, std::ranges::equal_range(byId_, owner.id, {}, [this](std::size_t each) {
              return cuts_[each].id;
          }));
}

void ClipAnnotations::placeRange(xml::Element annotation, FrameRange range)
{
    const std::size_t first = clipAt(range.start);
    const auto after = std::ranges::partition_point(
        cuts_, [&](const Cut& cut) { return engine_.sourceStart + cut.start < range.end; });
    const std::size_t end = std::max(first, static_cast<std::size_t>(after - cuts_.begin()));
    place(annotation, rangeText(annotation, range), std::views::iota(first, end));
}

void ClipAnnotations::placePoint(xml::Element annotation, Frames at)
{
    const std::size_t clip = clipAt(at);
    if (clip < cuts_.size() && engine_.sourceStart + cuts_[clip].start <= at)
        place(annotation, {partText(annotation), {}, {}, {}}, std::views::single(clip));
}

/// The first clip that ends after the source frame; the number of clips if there is none.
std::size_t ClipAnnotations::clipAt(Frames sourceFrame) const
{
    const auto clip = std::ranges::partition_point(
        cuts_, [&](const Cut& cut) { return engine_.sourceStart + cut.start + cut.duration <= sourceFrame; });
    return static_cast<std::size_t>(clip - cuts_.begin());
}

} // namespace corvane
