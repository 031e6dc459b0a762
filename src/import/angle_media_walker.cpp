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

/// The limit for one document: far more clips than a project has, and still less than a hundred megabytes.
constexpr std::int64_t mostSpans = 1'000'000;

bool isAllowed(std::string_view elementName)
{
    constexpr std::array<std::string_view, 10> allowed = {"asset-clip", "audio", "video", "clip",  "sync-clip",
                                                          "ref-clip",   "spine", "gap",   "title", "live-drawing"};
    return std::ranges::find(allowed, elementName) != allowed.end();
}

} // namespace

std::vector<AngleMediaWalker::Span> AngleMediaWalker::walk(
    xml::Element element, std::string_view angleName, VisitedReferences visited, int depth)
{
    angleName_ = angleName;
    visited_ = std::move(visited);
    spans_.clear();
    append(element, depth);
    return std::move(spans_);
}

void AngleMediaWalker::append(xml::Element element, int depth)
{
    if (depth > deepestLevel)
        refuse(" contains excessively nested clips.");
    const std::string_view kind = element.plainName();
    if (!isAllowed(kind))
        refuse(" contains an unsupported clip type: " + element.name() + ".");
    const ClipAttributes clip(element);
    budget_.spendOnAttributes(angleName_, clip.effort);
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
    const auto compound = kind == "ref-clip" ? std::optional(enterCompound(clip)) : std::nullopt;
    budget_.visitChildren(element, angleName_, [&](xml::Element child) {
        if (isAllowed(child.plainName()))
            append(child, depth + 1);
    });
    if (compound) {
        budget_.visitChildren(*compound, angleName_, [&](xml::Element child) {
            if (child.named("spine"))
                append(child, depth + 1);
        });
        visited_.erase(*clip.ref);
    }
    if (duration && !(std::isfinite(*duration) && *duration > 0))
        refuse(" contains invalid clip duration.");
    mapIntoParent(firstSpan, clip, offset, start, duration);
}

void AngleMediaWalker::refuseUnsupportedSettings(xml::Element element, const ClipAttributes& clip)
{
    bool speedChange = clip.splitAudio;
    std::size_t effort = 0;
    for (const xml::Element child : element.children()) {
        if (child.named("timeMap"))
            refuse(
                ", clip " + std::string(element.attribute("name").value_or(element.plainName())) +
                ", contains an unsupported setting: timeMap. Speed changes are not supported yet.");
        if (child.named("conform-rate")) {
            const auto [scaled] = child.attributes(std::array<std::string_view, 1>{"scaleEnabled"}, effort);
            speedChange = speedChange || scaled != "0";
        }
    }
    budget_.spendOnAttributes(angleName_, effort);
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
    if (++found_ > mostSpans) // then the next visit is refused
        budget_.left = 0;
    spans_.push_back(
        {start, start + *duration, kind != "audio" && asset->hasVideo, kind != "video" && asset->hasAudio});
}

/// The sequence that a reference leads to. From now on the compound clip counts as visited, also for clips that are
/// connected to the reference.
xml::Element AngleMediaWalker::enterCompound(const ClipAttributes& clip)
{
    const auto media = clip.ref ? resources_.media(clip.ref) : std::nullopt;
    std::optional<xml::Element> sequence;
    if (media)
        budget_.visitChildren(*media, angleName_, [&](xml::Element child) {
            if (!sequence && child.named("sequence"))
                sequence = child;
        });
    if (!sequence || !visited_.insert(*clip.ref).second)
        refuse(" contains a missing or circular compound clip reference.");
    return *sequence;
}

void AngleMediaWalker::mapIntoParent(
    std::size_t from, const ClipAttributes& clip, double offset, double start, std::optional<double> duration)
{
    const std::string_view mode = clip.srcEnable.value_or("all");
    const bool video = mode != "audio" && mode != "none";
    const bool audio = mode != "video" && mode != "none";
    auto kept = spans_.begin() + static_cast<std::ptrdiff_t>(from);
    for (auto span = kept; span != spans_.end(); ++span) {
        // Contents outside the element's own source range are not used.
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
