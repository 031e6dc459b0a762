#include "fuzz/edits/plain_coverage.h"

#include <charconv>
#include <optional>
#include <stdexcept>
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

/// An element as its attributes say it, with what is inside.
struct Plain {
    Ticks start = 0;
    Ticks shift = 0; ///< from the parent's time to its own
    std::optional<Ticks> duration;
    PaintedFrame shows; ///< by itself
    PaintedFrame passes = {true, true};
    std::vector<Plain> inside;
};

/// What it gives of an interval of its parent's time.
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

class Reader {
public:
    explicit Reader(xml::Element resources) : resources_(resources) {}

    [[nodiscard]] std::vector<Plain> childrenOf(xml::Element parent) const
    {
        std::vector<Plain> all;
        for (const xml::Element child : parent.children()) {
            if (!child.named("transition") && child.attribute("enabled") != "0")
                all.push_back(read(child));
        }
        return all;
    }

private:
    [[nodiscard]] Plain read(xml::Element element) const
    {
        const std::string kind = element.name();
        Plain plain;
        plain.start = ticksOf(element.attribute("start").value_or("0s"));
        plain.shift = plain.start - ticksOf(element.attribute("offset").value_or("0s"));
        auto duration = element.attribute("duration");
        if (kind == "asset-clip" || kind == "audio" || kind == "video") {
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
        plain.inside = childrenOf(element);
        if (kind == "ref-clip") {
            const xml::Element compound = resource("media", *element.attribute("ref"));
            for (Plain& child : childrenOf(*compound.firstChild("sequence")))
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
    const xml::Element root = *document.root();
    const xml::Element resources = *root.firstChild("resources");
    const Ticks frame = ticksOf(*resources.firstChild("format")->attribute("frameDuration"));
    if (frame <= 0)
        throw std::logic_error("a frame lasts some time");
    const xml::Element sequence = *root.firstChild("project")->firstChild("sequence");
    const xml::Element clip = *sequence.firstChild("spine")->firstChild("mc-clip");
    const xml::Element multicam = *resources.firstChild("media")->firstChild("multicam");
    const Ticks first = ticksOf(*clip.attribute("start")) - ticksOf(*multicam.attribute("tcStart"));
    std::vector<PaintedFrame> frames(static_cast<std::size_t>(ticksOf(*clip.attribute("duration")) / frame));
    for (const xml::Element angle : multicam.children()) {
        if (angle.attribute("angleID") != angleID)
            continue;
        const std::vector<Plain> clips = Reader(resources).childrenOf(angle);
        for (std::size_t number = 0; number < frames.size(); ++number) {
            const Ticks from = first + static_cast<Ticks>(number) * frame;
            for (const Plain& child : clips) {
                const PaintedFrame more = shown(child, {from, from + frame});
                frames[number] = {frames[number].video || more.video, frames[number].audio || more.audio};
            }
        }
    }
    return frames;
}

} // namespace corvane::test
