#include "import/clip_collector.h"

#include "import/clip_attributes.h"
#include "import/final_cut_import_error.h"
#include "import/time_values.h"

#include <algorithm>
#include <string>

namespace corvane {

namespace {

/// About half a second of walking. A document of that many clips is read; one that repeats them so often is not.
constexpr std::int64_t mostRepeatedVisits = 10'000'000;

} // namespace

ClipCollector::ClipCollector(const MediaResources& resources)
    : resources_(resources), compounds_(resources.mediaCount()), uses_(resources.mediaCount())
{
}

void ClipCollector::begin(xml::Element angle, std::string_view angleName)
{
    angleName_ = angleName;
    angleDisabled_ = angle.attribute("enabled") == "0";
    clips_ = {};
    ++angleNumber_;
}

void ClipCollector::add(xml::Element child)
{
    if (angleDisabled_)
        return;
    visit(child);
    while (!stack_.empty()) {
        Frame& top = stack_.back();
        if (top.next == xml::ElementRange::end()) {
            const Frame done = top;
            stack_.pop_back();
            leave(done);
            continue;
        }
        const xml::Element inner = *top.next++;
        if (top.media == nullptr || inner.named("sequence"))
            visit(inner);
    }
}

void ClipCollector::visit(xml::Element element)
{
    ++visits_;
    if (repeating_ > 0 && ++repeatedVisits_ > mostRepeatedVisits)
        refuse();
    if (isMediaClip(element.plainName()))
        addClip(element);
    else if (element.attribute("enabled") != "0") {
        stack_.push_back({element, element.children().begin()});
        if (element.named("ref-clip"))
            visitReference(element);
    }
}

/// The reference counts as visited from here on, also for the clips connected to it; what it refers to comes after
/// them.
void ClipCollector::visitReference(xml::Element element)
{
    const auto ref = element.attribute("ref");
    const MediaEntry* media = ref ? resources_.media(ref) : nullptr;
    if (media == nullptr)
        return;
    const Frame* user = innermostCompound();
    if (user != nullptr && !compounds_[user->media->index].walked)
        uses_.add(user->media->index, media->index);
    Compound& compound = compounds_[media->index];
    if (compound.open) {
        // A compound clip that holds itself directly leaves the same reference out whichever way leads into it.
        if (path_.back() != media)
            markCircular();
        return;
    }
    compound.open = true;
    path_.push_back(media);
    uses_.enterConnected(media->index);
    stack_.back().refers = media;
}

void ClipCollector::addClip(xml::Element clip)
{
    clip.fetchAhead();
    const auto [enabled, offsetText, ref] =
        clip.attributes(std::array<std::string_view, 3>{"enabled", "offset", "ref"});
    if (enabled == "0")
        return;
    const double offset = parseSeconds(offsetText.value_or("0s"));
    clips_.firstOffset = std::min(clips_.firstOffset.value_or(offset), offset);
    addCount(1);

    const AssetFacts* asset = resources_.asset(ref);
    if (asset == nullptr) {
        missing_.insert(clip.attribute("name").value_or("Unnamed clip"));
        return;
    }
    clips_.cameras.insert(asset->cameraNames.begin(), asset->cameraNames.end());
    if (!asset->located)
        missing_.insert(asset->name.value_or("Unnamed clip"));
}

void ClipCollector::addCount(std::int64_t clips)
{
    if (__builtin_add_overflow(clips_.count, clips, &clips_.count))
        refuse();
}

void ClipCollector::refuse() const
{
    throw FinalCutImportError::invalid(
        "Camera " + std::string(angleName_) +
        " uses compound clips inside each other too many times to be read. Break apart these compound clips in Final "
        "Cut and export XML again.");
}

void ClipCollector::leave(const Frame& frame)
{
    if (frame.refers != nullptr) {
        uses_.leaveConnected();
        enterCompound(*frame.refers);
        return;
    }
    if (frame.media == nullptr)
        return;
    close(*frame.media);
    Compound& compound = compounds_[frame.media->index];
    if (compound.walked)
        --repeating_;
    compound.walked = true;
    if (frame.circular) {
        markCircular();
        return;
    }
    compound.count = clips_.count - frame.countBefore;
    compound.countedInAngle = angleNumber_;
}

void ClipCollector::enterCompound(const MediaEntry& media)
{
    Compound& compound = compounds_[media.index];
    if (isKnown(media)) {
        addCount(compound.count);
        close(media);
        return;
    }
    if (compound.walked)
        ++repeating_;
    stack_.push_back({media.element, media.element.children().begin(), &media, nullptr, clips_.count});
}

void ClipCollector::close(const MediaEntry& media)
{
    compounds_[media.index].open = false;
    path_.pop_back();
}

/// A kept count holds where nothing in the compound clip is left out that was not left out then.
bool ClipCollector::isKnown(const MediaEntry& media)
{
    if (compounds_[media.index].countedInAngle != angleNumber_)
        return false;
    const bool leads = uses_.leadToConnected(media.index);
    if (uses_.steps() > mostRepeatedVisits)
        refuse();
    return !leads;
}

ClipCollector::Frame* ClipCollector::innermostCompound()
{
    const auto inner =
        std::find_if(stack_.rbegin(), stack_.rend(), [](const Frame& frame) { return frame.media != nullptr; });
    return inner == stack_.rend() ? nullptr : &*inner;
}

void ClipCollector::markCircular()
{
    if (Frame* inner = innermostCompound())
        inner->circular = true;
}

} // namespace corvane
