#include "export/piece_annotations.h"

#include "export/piece_parts.h"
#include "import/source_document.h"
#include "import/time_values.h"
#include "xml/writing.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

namespace corvane {

namespace {

bool isConnectedItem(std::string_view name)
{
    constexpr std::array<std::string_view, 12> names = {"asset-clip",   "audio",    "video",   "clip",
                                                        "sync-clip",    "ref-clip", "spine",   "title",
                                                        "live-drawing", "caption",  "mc-clip", "audition"};
    return std::ranges::find(names, name) != names.end();
}

bool isRangedAnnotation(std::string_view name)
{
    return name == "keyword" || name == "rating" || name == "analysis-marker";
}

bool isAnnotation(std::string_view name)
{
    return isRangedAnnotation(name) || name == "marker" || name == "chapter-marker" || name == "hidden-clip-marker";
}

} // namespace

bool isSharedOut(std::string_view elementName)
{
    return isConnectedItem(elementName) || isAnnotation(elementName);
}

PieceAnnotations::PieceAnnotations(const CutEngine& engine, const std::vector<Cut>& cuts)
    : engine_(engine), cuts_(cuts), pieces_(cuts.size())
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
    for (const Placement& placement : pieces_[piece]) {
        const Text& text = texts_[placement.text];
        if (!placement.trimmedTo) {
            appendPart(out, text.whole);
            continue;
        }
        const FrameRange range = *placement.trimmedTo;
        appendPart(out, text.openTag);
        out += " start=\"";
        appendTime(range.start);
        out += "\" duration=\"";
        appendTime(range.end - range.start);
        out += '"';
        out += text.rest;
    }
}

void PieceAnnotations::addConnectedItems()
{
    for (const xml::Element item : engine_.source->original.children()) {
        if (!isConnectedItem(item.plainName()))
            continue;
        const double offset = parseSeconds(item.attribute("offset").value_or("0s"));
        texts_.push_back({partText(item), {}, {}});
        placeConnectedItem(offset, texts_.size() - 1);
    }
}

void PieceAnnotations::addAnnotations()
{
    const auto text = [this](Frames frames) {
        return timeString(frames, engine_.frameNumerator, engine_.frameDenominator);
    };
    const auto frames = [this](std::string_view time) {
        return alignedFrames(time, engine_.frameNumerator, engine_.frameDenominator);
    };
    for (const xml::Element annotation : engine_.source->original.children()) {
        if (!isAnnotation(annotation.plainName()))
            continue;
        const bool ranged = isRangedAnnotation(annotation.plainName());
        const auto [start, duration] = annotation.attributes(std::array<std::string_view, 2>{"start", "duration"});
        // Defaults take the road through text too, which keeps one rule for what is out of range.
        const Frames from = start ? frames(*start) : frames(text(engine_.sourceStart));
        const Frames length = duration ? frames(*duration) : ranged ? frames(text(engine_.length)) : 0;
        if (ranged && length > 0) {
            texts_.push_back(rangeText(annotation));
            placeRange({from, from + length}, texts_.size() - 1);
        } else {
            texts_.push_back({partText(annotation), {}, {}});
            placePoint(from, texts_.size() - 1);
        }
    }
}

PieceAnnotations::Text PieceAnnotations::rangeText(xml::Element annotation)
{
    std::string openTag = xml::openTag(annotation, {"start", "duration"});
    if (xml::isEmpty(annotation))
        return {{}, std::move(openTag), "/>"};
    const std::string whole = partText(annotation);
    return {{}, std::move(openTag), whole.substr(whole.find('>'))};
}

void PieceAnnotations::placeConnectedItem(double offset, std::size_t text)
{
    constexpr double tolerance = 0.00000001;
    const double fromStart = offset - engine_.seconds(engine_.sourceStart);
    const auto after = std::ranges::partition_point(
        cuts_, [&](const Cut& cut) { return engine_.seconds(cut.start) <= fromStart + tolerance; });
    const Cut& owner = after == cuts_.begin() ? cuts_.front() : *std::prev(after);
    // The owner is told by its id, so in a list with repeated ids every piece of that id shows the item.
    for (const std::size_t piece :
         std::ranges::equal_range(byId_, owner.id, {}, [this](std::size_t each) { return cuts_[each].id; }))
        pieces_[piece].push_back({text, std::nullopt});
}

void PieceAnnotations::placeRange(FrameRange range, std::size_t text)
{
    for (std::size_t piece = pieceAt(range.start); piece < cuts_.size(); ++piece) {
        const Frames start = engine_.sourceStart + cuts_[piece].start;
        if (start >= range.end)
            break;
        const FrameRange trimmed = {std::max(range.start, start), std::min(range.end, start + cuts_[piece].duration)};
        pieces_[piece].push_back({text, trimmed});
    }
}

void PieceAnnotations::placePoint(Frames at, std::size_t text)
{
    const std::size_t piece = pieceAt(at);
    if (piece < cuts_.size() && engine_.sourceStart + cuts_[piece].start <= at)
        pieces_[piece].push_back({text, std::nullopt});
}

/// The first piece that ends after the source frame; the number of pieces when there is none.
std::size_t PieceAnnotations::pieceAt(Frames sourceFrame) const
{
    const auto piece = std::ranges::partition_point(
        cuts_, [&](const Cut& cut) { return engine_.sourceStart + cut.start + cut.duration <= sourceFrame; });
    return static_cast<std::size_t>(piece - cuts_.begin());
}

} // namespace corvane
