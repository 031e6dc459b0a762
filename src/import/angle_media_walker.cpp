#include "import/angle_media_walker.h"

#include "import/final_cut_import_error.h"
#include "import/time_values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

constexpr int deepestLevel = 39;

/// About a hundred megabytes of spans made by using compound clips again and again.
constexpr std::size_t mostCopiedSpans = 4'000'000;

/// Under a second of looking for circles.
constexpr std::int64_t mostSearchSteps = 10'000'000;

bool isAllowed(std::string_view elementName)
{
    constexpr std::array<std::string_view, 10> allowed = {"asset-clip", "audio", "video", "clip",  "sync-clip",
                                                          "ref-clip",   "spine", "gap",   "title", "live-drawing"};
    return std::ranges::find(allowed, elementName) != allowed.end();
}

} // namespace

AngleMediaWalker::AngleMediaWalker(const MediaResources& resources)
    : resources_(resources), compounds_(resources.mediaCount()), uses_(resources.mediaCount())
{
}

const std::vector<AngleMediaWalker::Span>& AngleMediaWalker::walk(
    xml::Element element, std::string_view angleName, const VisitedReferences& visited, int depth)
{
    angleName_ = angleName;
    path_ = visited;
    spans_.clear();
    inside_.reset();
    uses_.leaveAll();
    for (const std::string_view reference : visited) {
        if (const MediaEntry* media = resources_.media(reference))
            uses_.enterConnected(media->index);
    }
    deepest_ = depth;
    append(element, depth);
    return spans_;
}

void AngleMediaWalker::append(xml::Element element, int depth)
{
    ++visits_;
    deepest_ = std::max(deepest_, depth);
    if (depth > deepestLevel)
        refuse(" contains excessively nested clips.");
    const std::string_view kind = element.plainName();
    if (!isAllowed(kind))
        refuse(" contains an unsupported clip type: " + element.name() + ".");
    const ClipAttributes clip(element);
    if (clip.disabled)
        return;
    refuseUnsupportedSettings(element, clip);

    const double offset = parseSeconds(clip.offset.value_or("0s"));
    const double start = parseSeconds(clip.start.value_or("0s"));
    std::optional<double> duration;
    if (clip.duration)
        duration = parseSeconds(clip.duration);

    const std::size_t firstSpan = spans_.size();
    if (isMediaClip(kind))
        appendMedia(element, clip, start, duration);
    const bool opensCompound = kind == "ref-clip";
    if (opensCompound)
        enterCompound(clip);
    for (const xml::Element child : element.children()) {
        if (isAllowed(child.plainName()))
            append(child, depth + 1);
    }
    if (opensCompound) {
        uses_.leaveConnected();
        appendCompound(clip, depth + 1);
        path_.erase(*clip.ref);
    }
    if (duration && !(std::isfinite(*duration) && *duration > 0))
        refuse(" contains invalid clip duration.");
    mapIntoParent(firstSpan, clip, offset, start, duration);
}

void AngleMediaWalker::refuseUnsupportedSettings(xml::Element element, const ClipAttributes& clip) const
{
    bool speedChange = clip.splitAudio;
    for (const xml::Element child : element.children()) {
        if (child.named("timeMap"))
            refuse(
                ", clip " + std::string(element.attribute("name").value_or(element.plainName())) +
                ", contains an unsupported setting: timeMap. Speed changes are not supported yet.");
        if (child.named("conform-rate") && child.attribute("scaleEnabled") != "0")
            speedChange = true;
    }
    if (speedChange)
        refuse(" contains speed changes or split audio, which are not supported yet.");
}

void AngleMediaWalker::appendMedia(
    xml::Element element, const ClipAttributes& clip, double start, std::optional<double>& duration)
{
    const std::string_view kind = element.plainName();
    const AssetFacts* asset = resources_.asset(clip.ref);
    if (asset == nullptr)
        refuse(", clip " + std::string(element.attribute("name").value_or(kind)) + ", refers to a missing recording.");
    if (!asset->located)
        throw FinalCutImportError::invalid(
            "No media location in export: " + std::string(asset->name.value_or(angleName_)) +
            ". Finish importing media in Final Cut and export XML again.");
    if (!duration)
        duration = parseSeconds(asset->duration);
    spans_.push_back(
        {start, start + *duration, kind != "audio" && asset->hasVideo, kind != "video" && asset->hasAudio});
}

/// The reference counts as visited from here on, also for the clips connected to it.
void AngleMediaWalker::enterCompound(const ClipAttributes& clip)
{
    const MediaEntry* media = clip.ref ? resources_.media(clip.ref) : nullptr;
    if (media == nullptr || path_.contains(*clip.ref) || !media->element.firstChild("sequence"))
        refuse(" contains a missing or circular compound clip reference.");
    path_.insert(*clip.ref);
    if (inside_)
        uses_.add(*inside_, media->index);
    uses_.enterConnected(media->index);
}

void AngleMediaWalker::appendCompound(const ClipAttributes& clip, int depth)
{
    const MediaEntry& media = *resources_.media(clip.ref);
    Compound& compound = compounds_[media.index];
    if (compound.walked && !leadsInACircle(media.index)) {
        appendCopy(compound, depth);
        return;
    }
    const auto insideBefore = std::exchange(inside_, media.index);
    const int deepestBefore = std::exchange(deepest_, depth - 1);
    const std::size_t firstSpan = spans_.size();
    for (const xml::Element child : media.element.firstChild("sequence")->children()) {
        if (child.named("spine"))
            append(child, depth);
    }
    compound.spans.assign(spans_.begin() + static_cast<std::ptrdiff_t>(firstSpan), spans_.end());
    compound.levels = deepest_ - depth;
    compound.walked = true;
    inside_ = insideBefore;
    deepest_ = std::max(deepest_, deepestBefore);
}

void AngleMediaWalker::appendCopy(const Compound& compound, int depth)
{
    if (depth + compound.levels > deepestLevel)
        refuse(" contains excessively nested clips.");
    deepest_ = std::max(deepest_, depth + compound.levels);
    copiedSpans_ += compound.spans.size();
    if (copiedSpans_ > mostCopiedSpans)
        refuseRepetition();
    spans_.insert(spans_.end(), compound.spans.begin(), compound.spans.end());
}

/// The walk then finds the place and refuses it.
bool AngleMediaWalker::leadsInACircle(std::size_t compound)
{
    const bool leads = uses_.leadToConnected(compound);
    if (uses_.steps() > mostSearchSteps)
        refuseRepetition();
    return leads;
}

void AngleMediaWalker::refuseRepetition() const
{
    refuse(" uses compound clips inside each other too many times to be read. Break apart these compound clips in "
           "Final Cut and export XML again.");
}

void AngleMediaWalker::mapIntoParent(
    std::size_t from, const ClipAttributes& clip, double offset, double start, std::optional<double> duration)
{
    const std::string_view mode = clip.srcEnable.value_or("all");
    const bool video = mode != "audio" && mode != "none";
    const bool audio = mode != "video" && mode != "none";
    auto kept = spans_.begin() + static_cast<std::ptrdiff_t>(from);
    for (auto span = kept; span != spans_.end(); ++span) {
        // Outside the element's own source range nothing of its contents is used.
        const double s = duration ? std::max(span->start, start) : span->start;
        const double e = duration ? std::min(span->end, start + *duration) : span->end;
        if (s >= e)
            continue;
        *kept++ = {s + offset - start, e + offset - start, span->video && video, span->audio && audio};
    }
    spans_.erase(kept, spans_.end());
}

void AngleMediaWalker::refuse(const std::string& afterCamera) const
{
    throw FinalCutImportError::invalid("Camera " + std::string(angleName_) + afterCamera);
}

} // namespace corvane
