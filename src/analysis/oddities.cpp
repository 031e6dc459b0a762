#include "analysis/oddities.h"

#include "analysis/names.h"
#include "engine/generation_inputs.h"
#include "import/clip_attributes.h"
#include "import/source_document.h"
#include "import/time_values.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

/// Numbers the recordings with video, which are files or compound clips. Two assets may refer to the same file.
class Recordings {
public:
    explicit Recordings(xml::Element resources)
    {
        std::map<std::string_view, int> files;
        for (const xml::Element child : resources.children()) {
            const bool isAsset = child.named("asset");
            const auto id = child.attribute("id");
            if (!id || !(isAsset || child.named("media")) || (isAsset && child.attribute("hasVideo") != "1"))
                continue;
            const std::string_view file = isAsset ? fileOf(child) : std::string_view();
            const int next = static_cast<int>(names_.size());
            const int number = file.empty() ? next : files.emplace(file, next).first->second;
            numbers_.emplace(*id, number);
            names_.push_back(child.attribute("name").value_or(*id));
        }
    }

    /// None for a clip without video.
    [[nodiscard]] std::optional<int> number(xml::Element clip) const
    {
        const bool shows = clip.named("asset-clip") || clip.named("video") || clip.named("ref-clip");
        if (!shows)
            return std::nullopt;
        const ClipAttributes attributes(clip);
        const bool hidden = attributes.disabled || attributes.srcEnable == "audio" || attributes.srcEnable == "none";
        const auto found = hidden || !attributes.ref ? numbers_.end() : numbers_.find(*attributes.ref);
        return found == numbers_.end() ? std::nullopt : std::optional(found->second);
    }

    [[nodiscard]] std::string name(int number) const { return std::string(names_[static_cast<std::size_t>(number)]); }

private:
    static std::string_view fileOf(xml::Element asset)
    {
        for (const xml::Element child : asset.children()) {
            const auto file = child.named("media-rep") ? child.attribute("src") : std::nullopt;
            if (file && !file->empty())
                return *file;
        }
        return asset.attribute("src").value_or("");
    }

    std::map<std::string_view, int> numbers_; ///< by id
    std::vector<std::string_view> names_;     ///< by number
};

/// One use of a recording in an angle, in seconds of the multicam.
struct Use {
    int recording = 0;
    std::size_t angle = 0;
    double start = 0;
    double end = 0;
};

/// Adds a clip in an angle, with everything in it, from its offset on. A clip without a duration is skipped.
void addUses(std::vector<Use>& uses, const Recordings& recordings, xml::Element clip, std::size_t angle)
{
    const ClipAttributes attributes(clip);
    if (attributes.disabled || !attributes.duration)
        return;
    const double start = parseSeconds(attributes.offset.value_or("0s")); // which the import has already read
    const Use use = {0, angle, start, start + parseSeconds(attributes.duration)};
    const auto add = [&](xml::Element element) {
        if (const auto number = recordings.number(element))
            uses.push_back({*number, use.angle, use.start, use.end});
    };
    add(clip);
    for (const xml::Element below : clip.descendants())
        add(below);
}

/// The sets of angles that show the same recording at the same time, each with the first such recording.
std::map<std::set<std::size_t>, int> sharedRecordings(std::vector<Use> uses)
{
    std::ranges::sort(uses, {}, [](const Use& use) { return std::pair(use.recording, use.start); });
    std::map<int, std::set<std::size_t>> shared;
    const Use* last = nullptr;  // of the earlier uses, the one that ends last
    const Use* other = nullptr; // the same, but in another angle
    for (const Use& use : uses) {
        if (last == nullptr || last->recording != use.recording) {
            last = &use;
            other = nullptr;
            continue;
        }
        const Use* beside = last->angle == use.angle ? other : last;
        if (beside != nullptr && beside->end > use.start)
            shared[use.recording].insert({use.angle, beside->angle});
        if (use.end > last->end) {
            other = use.angle == last->angle ? other : last;
            last = &use;
        } else if (use.angle != last->angle && (other == nullptr || use.end > other->end)) {
            other = &use;
        }
    }
    std::map<std::set<std::size_t>, int> byAngles;
    for (const auto& [recording, angles] : shared)
        byAngles.emplace(angles, recording);
    return byAngles;
}

void addSameRecordings(std::vector<std::string>& sentences, const ImportedProject& project, const CutEngine& engine)
{
    const Recordings recordings(*engine.source->document.root()->firstChild("resources"));
    std::vector<Use> uses;
    std::vector<std::string> names;
    for (const xml::Element angle : engine.source->multicam.children()) {
        const std::string_view id = angle.attribute("angleID").value_or("");
        if (!angle.named("mc-angle") || engine.videoRanges(id).empty())
            continue;
        for (const xml::Element clip : angle.children())
            addUses(uses, recordings, clip, names.size());
        names.push_back(angleName(project, id));
    }
    for (const auto& [angles, recording] : sharedRecordings(std::move(uses))) {
        std::vector<std::string> of;
        for (const std::size_t angle : angles)
            of.push_back(names[angle]);
        sentences.push_back(
            joinedNames(of) + " hold the same recording, " + recordings.name(recording) +
            ". A cut from one to the other changes nothing on screen: exclude all but one.");
    }
}

/// The name of a video effect or adjustment that is enabled; none for anything else.
std::optional<std::string> effectName(xml::Element element)
{
    using Adjustment = std::pair<std::string_view, std::string_view>;
    constexpr std::array<Adjustment, 12> adjustments = {
        Adjustment{"adjust-crop", "Crop"},
        {"adjust-corners", "Distort"},
        {"adjust-transform", "Transform"},
        {"adjust-blend", "Compositing"},
        {"adjust-stabilization", "Stabilization"},
        {"adjust-rollingShutter", "Rolling Shutter"},
        {"adjust-360-transform", "360° Transform"},
        {"adjust-reorient", "Reorient"},
        {"adjust-orientation", "Orientation"},
        {"adjust-cinematic", "Cinematic"},
        {"filter-video", "Effect"},
        {"filter-video-mask", "Masked effect"}};
    const auto found = std::ranges::find(adjustments, element.plainName(), &Adjustment::first);
    if (found == adjustments.end() || element.attribute("enabled") == "0")
        return std::nullopt;
    return std::string(element.attribute("name").value_or(found->second));
}

void addEffectsOnOneAngle(std::vector<std::string>& sentences, const ImportedProject& project, const CutEngine& engine)
{
    std::map<std::string_view, std::vector<std::string>> effects; // by angle
    for (const xml::Element source : engine.source->original.children()) {
        const std::string_view angle = source.attribute("angleID").value_or("");
        const auto mode = source.attribute("srcEnable").value_or("all");
        if (!source.named("mc-source") || engine.videoRanges(angle).empty() || (mode != "all" && mode != "video"))
            continue;
        for (const xml::Element child : source.children()) {
            if (auto name = effectName(child))
                effects[angle].push_back(std::move(*name));
        }
    }
    if (effects.size() != 1 || videoAngles(project, engine).size() < 2)
        return;
    const auto& [angle, names] = *effects.begin();
    sentences.push_back(
        "Picture effects of the multicam clip sit on " + angleName(project, angle) + " only (" + joinedNames(names) +
        "). Shots of the other cameras will be without them.");
}

} // namespace

std::vector<std::string> oddities(const ImportedProject& project, const CutEngine& engine)
{
    std::vector<std::string> sentences;
    if (!engine.source || !engine.source->document.root()->firstChild("resources"))
        return sentences;
    addSameRecordings(sentences, project, engine);
    addEffectsOnOneAngle(sentences, project, engine);
    return sentences;
}

} // namespace corvane
