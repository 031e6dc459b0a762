#include "fuzz/edits/plain_coverage.h"

#include <charconv>
#include <optional>
#include <set>
#include <utility>

namespace corvane::test {

namespace {

std::int64_t wholeNumber(std::string_view text)
{
    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ptr != text.data() + text.size())
        throw std::logic_error("not a number: " + std::string(text));
    return number;
}

struct Interval {
    Ticks from, to;
};

/// An element as its attributes describe it, with its contents.
struct Plain {
    Ticks start = 0;
    Ticks shift = 0; ///< from the parent's time to the element's own
    std::optional<Ticks> duration;
    PaintedFrame shows; ///< by itself
    PaintedFrame passes = {true, true};
    std::vector<Plain> inside;
};

/// What the element shows and plays in an interval of its parent's time.
PaintedFrame shown(const Plain& plain, Interval outside)
{
    const Interval here = {outside.from + plain.shift, outside.to + plain.shift};
    if (plain.duration && (here.from < plain.start || here.to > plain.start + *plain.duration))
        return {};
    PaintedFrame shows = plain.shows;
    for (const Plain& child : plain.inside) {
        const PaintedFrame more = shown(child, here);
        shows = {shows.video || more.video, shows.audio || more.audio};
    }
    return {shows.video && plain.passes.video, shows.audio && plain.passes.audio};
}

using References = std::set<std::string_view>; ///< on the path to an element

bool isMedia(const std::string& kind)
{
    return kind == "asset-clip" || kind == "audio" || kind == "video";
}

class Reader {
public:
    explicit Reader(const xml::Document& document) : root_(*document.root()), resources_(*root_.firstChild("resources"))
    {
    }

    [[nodiscard]] xml::Element root() const { return root_; }
    [[nodiscard]] xml::Element multicam() const { return *resources_.firstChild("media")->firstChild("multicam"); }
    [[nodiscard]] Ticks frame() const { return ticksOf(*resources_.firstChild("format")->attribute("frameDuration")); }

    [[nodiscard]] xml::Element angle(std::string_view id) const
    {
        for (const xml::Element angle : multicam().children()) {
            if (angle.attribute("angleID") == id)
                return angle;
        }
        throw std::logic_error("no angle " + std::string(id));
    }

    [[nodiscard]] std::vector<Plain> childrenOf(xml::Element parent, const References& visited = {}) const
    {
        std::vector<Plain> all;
        for (const xml::Element child : parent.children()) {
            const bool isRead = !child.named("transition") && !child.named("audition");
            if (isRead && child.attribute("enabled") != "0")
                all.push_back(read(child, visited));
        }
        return all;
    }

    [[nodiscard]] std::int64_t clipsIn(xml::Element element, References visited = {}) const
    {
        if (element.attribute("enabled") == "0")
            return 0;
        if (isMedia(element.name()))
            return 1;
        std::vector<xml::Element> inside;
        for (const xml::Element child : element.children())
            inside.push_back(child);
        if (element.named("ref-clip") && visited.insert(*element.attribute("ref")).second)
            inside.push_back(*resource("media", *element.attribute("ref")).firstChild("sequence"));
        std::int64_t clips = 0;
        for (const xml::Element each : inside)
            clips += clipsIn(each, visited);
        return clips;
    }

private:
    [[nodiscard]] Plain read(xml::Element element, References visited) const
    {
        const std::string kind = element.name();
        Plain plain;
        plain.start = ticksOf(element.attribute("start").value_or("0s"));
        plain.shift = plain.start - ticksOf(element.attribute("offset").value_or("0s"));
        auto duration = element.attribute("duration");
        if (isMedia(kind)) {
            const xml::Element asset = resource("asset", *element.attribute("ref"));
            if (!duration)
                duration = asset.attribute("duration");
            plain.shows.video = kind != "audio" && asset.attribute("hasVideo") == "1";
            plain.shows.audio = kind != "video" && asset.attribute("hasAudio") == "1";
        }
        if (duration)
            plain.duration = ticksOf(*duration);
        const std::string_view mode = element.attribute("srcEnable").value_or("all");
        plain.passes = {mode != "audio" && mode != "none", mode != "video" && mode != "none"};
        if (kind == "ref-clip" && !visited.insert(*element.attribute("ref")).second)
            throw Circle();
        plain.inside = childrenOf(element, visited);
        if (kind == "ref-clip") {
            const xml::Element compound = resource("media", *element.attribute("ref"));
            for (Plain& child : childrenOf(*compound.firstChild("sequence"), visited))
                plain.inside.push_back(std::move(child));
        }
        return plain;
    }

    [[nodiscard]] xml::Element resource(std::string_view kind, std::string_view id) const
    {
        for (const xml::Element child : resources_.children()) {
            if (child.named(kind) && child.attribute("id") == id)
                return child;
        }
        throw std::logic_error("no " + std::string(kind) + " " + std::string(id));
    }

    xml::Element root_;
    xml::Element resources_;
};

} // namespace

Ticks ticksOf(std::string_view time)
{
    constexpr Ticks second = 240'000;
    time.remove_suffix(1); // "s"
    const std::size_t slash = time.find('/');
    const std::int64_t denominator = slash == std::string_view::npos ? 1 : wholeNumber(time.substr(slash + 1));
    const std::int64_t numerator = wholeNumber(time.substr(0, slash)) * second;
    if (numerator % denominator != 0)
        throw std::logic_error("between two ticks: " + std::string(time));
    return numerator / denominator;
}

std::vector<PaintedFrame> paintedAngle(const xml::Document& document, std::string_view angleID)
{
    const Reader reader(document);
    const Ticks frame = reader.frame();
    if (frame <= 0)
        throw std::logic_error("a frame lasts some time");
    const xml::Element sequence = *reader.root().firstChild("project")->firstChild("sequence");
    const xml::Element clip = *sequence.firstChild("spine")->firstChild("mc-clip");
    const Ticks first = ticksOf(*clip.attribute("start")) - ticksOf(*reader.multicam().attribute("tcStart"));
    std::vector<PaintedFrame> frames(static_cast<std::size_t>(ticksOf(*clip.attribute("duration")) / frame));
    const std::vector<Plain> clips = reader.childrenOf(reader.angle(angleID));
    for (std::size_t number = 0; number < frames.size(); ++number) {
        const Ticks from = first + static_cast<Ticks>(number) * frame;
        for (const Plain& child : clips) {
            const PaintedFrame more = shown(child, {from, from + frame});
            frames[number] = {frames[number].video || more.video, frames[number].audio || more.audio};
        }
    }
    return frames;
}

std::int64_t countedClips(const xml::Document& document, std::string_view angleID)
{
    const Reader reader(document);
    return reader.clipsIn(reader.angle(angleID));
}

} // namespace corvane::test
