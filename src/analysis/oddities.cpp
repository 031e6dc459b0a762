#include "analysis/oddities.h"

#include "analysis/names.h"
#include "engine/generation_inputs.h"
#include "import/source_document.h"
#include "import/text_index.h"
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

/// What shows a picture: a file, or a compound clip. Two assets may be the same file.
class Recordings {
public:
    explicit Recordings(xml::Element resources)
    {
        TextIndex files;
        std::vector<std::string_view> fileOfEach;
        for (const xml::Element child : resources.children()) {
            const bool isAsset = child.named("asset");
            if (!isAsset && !child.named("media"))
                continue;
            const auto id = child.attribute("id");
            if (!id || (isAsset && child.attribute("hasVideo") != "1"))
                continue;
            const std::string_view file = isAsset ? fileOf(child) : std::string_view();
            ids_.add(*id, elements_.size());
            files.add(file, elements_.size());
            fileOfEach.push_back(file);
            elements_.push_back(child);
        }
        ids_.sort();
        files.sort();
        for (std::size_t element = 0; element < elements_.size(); ++element)
            numbers_.push_back(fileOfEach[element].empty() ? element : *files.find(fileOfEach[element]));
    }

    /// None for what shows no picture.
    [[nodiscard]] std::optional<std::size_t> number(std::optional<std::string_view> reference) const
    {
        const auto element = reference ? ids_.find(*reference) : std::nullopt;
        return element ? std::optional(numbers_[*element]) : std::nullopt;
    }

    [[nodiscard]] std::string name(std::size_t number) const
    {
        const xml::Element element = elements_[number];
        return std::string(element.attribute("name").value_or(*element.attribute("id")));
    }
    /// Numbers are smaller than this.
    [[nodiscard]] std::size_t count() const { return elements_.size(); }

private:
    /// Empty for an asset without a file.
    static std::string_view fileOf(xml::Element asset)
    {
        for (const xml::Element child : asset.children()) {
            const auto file = child.named("media-rep") ? child.attribute("src") : std::nullopt;
            if (file && !file->empty())
                return *file;
        }
        return asset.attribute("src").value_or(""); // before FCPXML 1.9
    }

    TextIndex ids_; ///< of the elements
    std::vector<xml::Element> elements_;
    std::vector<std::size_t> numbers_; ///< of each element, the first with the same file
};

/// A recording in an angle, seconds of the multicam.
struct Use {
    std::size_t recording = 0;
    std::size_t angle = 0;
    double start = 0;
    double end = 0;
};

/// What is connected to these is not what the angle holds.
bool isRecording(std::string_view kind)
{
    return kind == "asset-clip" || kind == "video" || kind == "ref-clip";
}

bool holdsClips(std::string_view kind)
{
    return kind == "clip" || kind == "sync-clip" || kind == "spine";
}

/// The recordings to which more than one angle refers: most projects have none, and need no closer look.
class SharedRecordings {
public:
    SharedRecordings(const Recordings& recordings, const std::vector<xml::Element>& angles)
        : recordings_(recordings), firstAngles_(recordings.count())
    {
        for (std::size_t angle = 0; angle < angles.size(); ++angle) {
            last_.reset();
            for (const xml::Element clip : angles[angle].children())
                visit(clip, angle);
        }
    }

    [[nodiscard]] bool any() const { return !shared_.empty(); }
    [[nodiscard]] bool hold(std::size_t recording) const { return shared_.contains(recording); }

private:
    void visit(xml::Element element, std::size_t angle)
    {
        const std::string_view kind = element.plainName();
        const auto reference = isRecording(kind) ? element.attribute("ref") : std::nullopt;
        if (reference && reference != last_) { // most clips refer to the same recording as the one before
            const auto number = recordings_.number(reference);
            if (number && firstAngles_[*number].value_or(angle) != angle)
                shared_.insert(*number);
            else if (number)
                firstAngles_[*number] = angle;
            last_ = reference;
        }
        for (const xml::Element child : holdsClips(kind) ? element.children() : xml::ElementRange())
            visit(child, angle);
    }

    const Recordings& recordings_;
    std::vector<std::optional<std::size_t>> firstAngles_; ///< by recording
    std::optional<std::string_view> last_;                ///< reference in this angle
    std::set<std::size_t> shared_;
};

/// The uses of shared recordings in an angle. A clip, and whatever it holds, is there from its offset on; one without
/// a duration is left out.
class UsesOfAngle {
public:
    UsesOfAngle(std::vector<Use>& uses, const Recordings& recordings, const SharedRecordings& shared, std::size_t angle)
        : uses_(uses), recordings_(recordings), shared_(shared), use_{0, angle, 0, 0}
    {
    }

    void add(xml::Element clip) { visit(clip, 0); }

private:
    void visit(xml::Element element, int depth)
    {
        const std::string_view kind = element.plainName();
        if (!isRecording(kind) && !holdsClips(kind))
            return;
        constexpr std::array<std::string_view, 5> names = {"ref", "offset", "duration", "srcEnable", "enabled"};
        const auto [ref, offset, duration, mode, enabled] = element.attributes(names);
        if (enabled == "0" || mode == "audio" || mode == "none" || (depth == 0 && !duration))
            return;
        if (depth == 0) {
            use_.start = parseSeconds(offset.value_or("0s")); // the import has read both
            use_.end = use_.start + parseSeconds(duration);
        }
        const auto number = isRecording(kind) ? recordings_.number(ref) : std::nullopt;
        if (number && shared_.hold(*number)) {
            use_.recording = *number;
            uses_.push_back(use_);
        }
        for (const xml::Element child : holdsClips(kind) ? element.children() : xml::ElementRange())
            visit(child, depth + 1);
    }

    std::vector<Use>& uses_;
    const Recordings& recordings_;
    const SharedRecordings& shared_;
    Use use_;
};

/// The angles that show a recording while another does, by the recording that tells it first.
std::map<std::set<std::size_t>, std::size_t> shownTogether(std::vector<Use> uses)
{
    std::ranges::sort(uses, {}, [](const Use& use) { return std::pair(use.recording, use.start); });
    std::map<std::size_t, std::set<std::size_t>> shared;
    const Use* last = nullptr;  // of those before, the one that ends last
    const Use* other = nullptr; // the same among the other angles
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
    std::map<std::set<std::size_t>, std::size_t> byAngles;
    for (const auto& [recording, angles] : shared)
        byAngles.emplace(angles, recording);
    return byAngles;
}

void addSameRecordings(std::vector<std::string>& sentences, const ImportedProject& project, const CutEngine& engine)
{
    const Recordings recordings(*engine.source->document.root()->firstChild("resources"));
    std::vector<xml::Element> angles;
    std::vector<std::string> names;
    for (const xml::Element angle : engine.source->multicam.children()) {
        const std::string_view id = angle.attribute("angleID").value_or("");
        if (!angle.named("mc-angle") || engine.videoRanges(id).empty())
            continue;
        angles.push_back(angle);
        names.push_back(angleName(project, id));
    }
    const SharedRecordings shared(recordings, angles);
    std::vector<Use> uses;
    for (std::size_t angle = 0; shared.any() && angle < angles.size(); ++angle) {
        UsesOfAngle found(uses, recordings, shared, angle);
        for (const xml::Element clip : angles[angle].children())
            found.add(clip);
    }
    const auto sharers = shownTogether(std::move(uses));
    for (const auto& [together, recording] : sharers) {
        std::vector<std::string> of;
        for (const std::size_t angle : together)
            of.push_back(names[angle]);
        sentences.push_back(
            joinedNames(of) + " hold the same recording, " + recordings.name(recording) +
            ". A cut from one to the other changes nothing on screen: exclude all but one.");
    }
}

/// The name of a picture effect or adjustment that is on; none for anything else.
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
        if (!source.named("mc-source"))
            continue;
        const std::string_view angle = source.attribute("angleID").value_or("");
        const auto mode = source.attribute("srcEnable").value_or("all");
        if (engine.videoRanges(angle).empty() || (mode != "all" && mode != "video"))
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
