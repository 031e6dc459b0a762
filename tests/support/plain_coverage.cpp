#include "support/plain_coverage.h"

#include <charconv>
#include <stdexcept>

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

class Painter {
public:
    explicit Painter(xml::Element resources) : resources_(resources) {}

    /// What the element gives of an interval of its parent's time.
    [[nodiscard]] PaintedFrame shown(xml::Element element, Interval outside) const
    {
        const std::string kind = element.name();
        if (element.attribute("enabled") == "0")
            return {};
        const Ticks start = ticksOf(element.attribute("start").value_or("0s"));
        const Ticks shift = start - ticksOf(element.attribute("offset").value_or("0s"));
        const Interval inside = {outside.from + shift, outside.to + shift};
        const bool isMedia = kind == "asset-clip" || kind == "audio" || kind == "video";
        auto duration = element.attribute("duration");
        PaintedFrame shows;
        if (isMedia) {
            const xml::Element asset = resource("asset", *element.attribute("ref"));
            if (!duration)
                duration = asset.attribute("duration");
            shows.video = kind != "audio" && asset.attribute("hasVideo") == "1";
            shows.audio = kind != "video" && asset.attribute("hasAudio") == "1";
        }
        if (duration && (inside.from < start || inside.to > start + ticksOf(*duration)))
            return {};
        for (const xml::Element child : element.children())
            add(shows, child, inside);
        if (kind == "ref-clip") {
            const xml::Element compound = resource("media", *element.attribute("ref"));
            for (const xml::Element child : compound.firstChild("sequence")->children())
                add(shows, child, inside);
        }
        const std::string_view mode = element.attribute("srcEnable").value_or("all");
        shows.video = shows.video && mode != "audio" && mode != "none";
        shows.audio = shows.audio && mode != "video" && mode != "none";
        return shows;
    }

private:
    void add(PaintedFrame& shows, xml::Element child, Interval inside) const
    {
        if (child.named("transition"))
            return;
        const PaintedFrame more = shown(child, inside);
        shows = {shows.video || more.video, shows.audio || more.audio};
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
    const xml::Element sequence = *root.firstChild("project")->firstChild("sequence");
    const xml::Element clip = *sequence.firstChild("spine")->firstChild("mc-clip");
    const xml::Element multicam = *resources.firstChild("media")->firstChild("multicam");
    const Ticks first = ticksOf(*clip.attribute("start")) - ticksOf(*multicam.attribute("tcStart"));
    const Painter painter(resources);
    std::vector<PaintedFrame> frames(static_cast<std::size_t>(ticksOf(*clip.attribute("duration")) / frame));
    for (const xml::Element angle : multicam.children()) {
        if (angle.attribute("angleID") != angleID)
            continue;
        for (std::size_t number = 0; number < frames.size(); ++number) {
            const Ticks from = first + static_cast<Ticks>(number) * frame;
            for (const xml::Element child : angle.children()) {
                const PaintedFrame more = painter.shown(child, {from, from + frame});
                frames[number] = {frames[number].video || more.video, frames[number].audio || more.audio};
            }
        }
    }
    return frames;
}

} // namespace corvane::test
