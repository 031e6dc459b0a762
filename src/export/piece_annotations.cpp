#include "export/piece_annotations.h"

#include "export/piece_parts.h"
#include "export/source_times.h"
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

PieceAnnotations::PieceAnnotations(const CutEngine& engine, const std::vector<Cut>& cuts, WrittenSize& size)
    : engine_(engine), cuts_(cuts), size_(size), pieces_(cuts.size())
{
    byId_.resize(cuts.size());
    std::iota(byId_.begin(), byId_.end(), std::size_t{0});
    std::ranges::sort(byId_, {}, [&](std::size_t piece) { return cuts[piece].id; });
    addConnectedItems();
    addAnnotations();
}

void PieceAnnotations::append(std::string& out, std::size_t piece) const
{
    const auto appendTime = [&](Frames frames) {
        appendTimeString(out, frames, engine_.frameNumerator, engine_.frameDenominator);
    };
    const Frames pieceStart = engine_.sourceStart + cuts_[piece].start;
    for (const std::uint32_t number : pieces_[piece]) {
        const Text& text = texts_[number];
        if (!text.range) {
            appendPart(out, text.whole);
            continue;
        }
        const Frames start = std::max(text.range->start, pieceStart);
        appendPart(out, text.openTag);
        out += " start=\"";
        appendTime(start);
        out += "\" duration=\"";
        appendTime(std::min(text.range->end, pieceStart + cuts_[piece].duration) - start);
        out += '"';
        out += text.rest;
    }
}

void PieceAnnotations::addConnectedItems()
{
    for (const xml::Element item : engine_.source->original.children()) {
        if (!isConnectedItem(item.plainName()))
            continue;
        placeConnectedItem(item, connectedOffset(item));
    }
}

void PieceAnnotations::addAnnotations()
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

PieceAnnotations::Text PieceAnnotations::rangeText(xml::Element annotation, FrameRange range)
{
    std::string openTag = xml::openTag(annotation, {"start", "duration"});
    if (xml::isEmpty(annotation))
        return {{}, std::move(openTag), "/>", range};
    const std::string whole = partText(annotation);
    return {{}, std::move(openTag), whole.substr(whole.find('>')), range};
}

/// Once the project is too large, items are only counted, so that they take no memory.
template <class Pieces>
void PieceAnnotations::place(xml::Element item, Text text, const Pieces& pieces)
{
    constexpr std::size_t leastTimes = std::string_view(R"( start="0/1s" duration="1/1s")").size();
    const std::size_t bytes = text.whole.size() + text.openTag.size() + text.rest.size();
    size_.add(item.name(), bytes + (text.range ? leastTimes : 0), std::ranges::size(pieces));
    if (size_.isTooLarge())
        return;
    texts_.push_back(std::move(text));
    for (const std::size_t piece : pieces)
        pieces_[piece].push_back(static_cast<std::uint32_t>(texts_.size() - 1));
}

void PieceAnnotations::placeConnectedItem(xml::Element item, double offset)
{
    constexpr double tolerance = 0.00000001;
    const double fromStart = offset - engine_.seconds(engine_.sourceStart);
    const auto after = std::ranges::partition_point(
        cuts_, [&](const Cut& cut) { return engine_.seconds(cut.start) <= fromStart + tolerance; });
    const Cut& owner = after == cuts_.begin() ? cuts_.front() : *std::prev(after);
    // The owner is identified by its id, so if ids are repeated every piece with that id gets the item.
    place(item, {partText(item), {}, {}, {}}, std::ranges::equal_range(byId_, owner.id, {}, [this](std::size_t each) {
              return cuts_[each].id;
          }));
}

void PieceAnnotations::placeRange(xml::Element annotation, FrameRange range)
{
    const std::size_t first = pieceAt(range.start);
    const auto after = std::ranges::partition_point(
        cuts_, [&](const Cut& cut) { return engine_.sourceStart + cut.start < range.end; });
    const std::size_t end = std::max(first, static_cast<std::size_t>(after - cuts_.begin()));
    place(annotation, rangeText(annotation, range), std::views::iota(first, end));
}

void PieceAnnotations::placePoint(xml::Element annotation, Frames at)
{
    const std::size_t piece = pieceAt(at);
    if (piece < cuts_.size() && engine_.sourceStart + cuts_[piece].start <= at)
        place(annotation, {partText(annotation), {}, {}, {}}, std::views::single(piece));
}

/// The first piece that ends after the source frame; the number of pieces if there is none.
std::size_t PieceAnnotations::pieceAt(Frames sourceFrame) const
{
    const auto piece = std::ranges::partition_point(
        cuts_, [&](const Cut& cut) { return engine_.sourceStart + cut.start + cut.duration <= sourceFrame; });
    return static_cast<std::size_t>(piece - cuts_.begin());
}

} // namespace corvane
