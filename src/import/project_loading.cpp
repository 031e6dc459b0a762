#include "import/project_loading.h"

#include "import/angle_media_walker.h"
#include "import/final_cut_import_error.h"
#include "import/project_import.h"
#include "import/source_document.h"
#include "import/time_values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace corvane {

namespace {

[[noreturn]] void refuse(const char* message)
{
    throw FinalCutImportError::invalid(message);
}

Frames alignedAttribute(const CutEngine& engine, xml::Element element, std::string_view name)
{
    return alignedFrames(element.attribute(name).value_or("0s"), engine.frameNumerator, engine.frameDenominator);
}

void readFrameDuration(CutEngine& engine, const ProjectOutline& outline)
{
    const auto text = outline.format ? outline.format->attribute("frameDuration") : std::nullopt;
    const RationalTime frameDuration = parseRationalTime(text.value_or(""));
    constexpr std::int64_t largest = 1'000'000;
    if (frameDuration.numerator < 1 || frameDuration.numerator > largest || frameDuration.denominator > largest)
        refuse("Unsupported frame rate.");
    engine.frameNumerator = frameDuration.numerator;
    engine.frameDenominator = frameDuration.denominator;
}

void readTimes(CutEngine& engine, const ProjectOutline& outline)
{
    engine.length = alignedAttribute(engine, outline.original, "duration");
    engine.sourceStart = alignedAttribute(engine, outline.original, "start");
    engine.timelineStart = alignedAttribute(engine, outline.original, "offset");
    if (engine.length < 1 || alignedAttribute(engine, outline.sequence, "duration") != engine.length ||
        alignedAttribute(engine, outline.sequence, "tcStart") != engine.timelineStart)
        refuse("Use one multicam clip filling the project timeline.");
    engine.dropFrame = outline.sequence.attribute("tcFormat") == "DF";
}

void refuseUnsupportedSettings(xml::Element original)
{
    bool unsupported =
        original.attribute("enabled") == "0" || original.attribute("audioStart") || original.attribute("audioDuration");
    for (const xml::Element child : original.children()) {
        unsupported = unsupported || child.named("timeMap") ||
                      (child.named("conform-rate") && child.attribute("scaleEnabled") != "0");
    }
    if (unsupported)
        refuse("Speed changes, split audio and disabled main multicam clips are not supported yet.");
}

/// An attribute of a `format`, or its default in FCPXML; a colour space without the remark in brackets.
std::optional<std::string_view> formatAttribute(xml::Element format, std::string_view name)
{
    const auto text = format.attribute(name);
    if (name == "fieldOrder")
        return text.value_or("progressive");
    if (name == "paspH" || name == "paspV")
        return text.value_or("1");
    if (name == "colorSpace" && text)
        return text->substr(0, text->find(" ("));
    return text;
}

/// True if two `format` elements agree in frame duration, dimensions, field order, pixel aspect and colour space.
bool formatsMatch(xml::Element a, xml::Element b)
{
    if (a.attribute("id") == b.attribute("id"))
        return true;
    const RationalTime ofA = parseRationalTime(a.attribute("frameDuration").value_or("0s"));
    const RationalTime ofB = parseRationalTime(b.attribute("frameDuration").value_or("0s"));
    std::int64_t left = 0;
    std::int64_t right = 0;
    if (__builtin_mul_overflow(ofA.numerator, ofB.denominator, &left) ||
        __builtin_mul_overflow(ofB.numerator, ofA.denominator, &right) || left != right)
        return false;
    constexpr std::array<std::string_view, 8> compared = {"width", "height",     "fieldOrder", "paspH",
                                                          "paspV", "colorSpace", "projection", "stereoscopic"};
    return std::ranges::all_of(
        compared, [&](std::string_view name) { return formatAttribute(a, name) == formatAttribute(b, name); });
}

std::optional<xml::Element> uniqueAudioSource(xml::Element original)
{
    std::optional<xml::Element> found;
    for (const xml::Element child : original.children()) {
        if (!child.named("mc-source") || !suppliesAudio(child))
            continue;
        if (found)
            return std::nullopt;
        found = child;
    }
    return found;
}

/// Converts the spans of one angle to project frames. A tolerance of a millionth of a frame absorbs rounding errors.
class FrameConversion {
public:
    FrameConversion(const CutEngine& engine, Frames multicamStart)
        : framesPerSecond_(static_cast<double>(engine.frameDenominator) / static_cast<double>(engine.frameNumerator)),
          sourceOffset_(engine.seconds(engine.sourceStart - multicamStart)),
          length_(engine.length)
    {
    }

    [[nodiscard]] FrameRange operator()(const AngleMediaWalker::Span& span) const
    {
        constexpr double tolerance = 0.000001;
        const double from = inFrames(span.start);
        const double to = inFrames(span.end);
        return {
            std::max<Frames>(static_cast<Frames>(std::ceil(from - tolerance)), 0),
            std::min(static_cast<Frames>(std::floor(to + tolerance)), length_)};
    }

private:
    [[nodiscard]] double inFrames(double seconds) const
    {
        constexpr double tooFar = 1'000'000'000;
        const double frames = (seconds - sourceOffset_) * framesPerSecond_;
        if (!(std::abs(frames) < tooFar)) // also refuses NaN
            refuse("Invalid angle timing.");
        return frames;
    }

    double framesPerSecond_;
    double sourceOffset_;
    Frames length_;
};

void readCoverage(CutEngine& engine, const ProjectOutline& outline, VisitBudget& budget)
{
    const FrameConversion inProjectFrames(engine, alignedAttribute(engine, outline.multicam, "tcStart"));
    AngleMediaWalker walker(outline.resources, budget);
    for (const xml::Element angle : outline.multicam.children()) {
        if (!angle.named("mc-angle"))
            continue;
        const std::string_view id = angle.attribute("angleID").value_or("");
        const std::string_view name = angle.attribute("name").value_or(id);
        std::vector<AngleMediaWalker::Span> spans;
        for (const xml::Element child : angle.children())
            std::ranges::copy(walker.walk(child, name), std::back_inserter(spans));
        std::vector<FrameRange> video;
        std::vector<FrameRange> audio;
        for (const AngleMediaWalker::Span& span : spans) {
            const FrameRange range = inProjectFrames(span);
            if (range.start >= range.end)
                continue;
            if (span.video)
                video.push_back(range);
            if (span.audio)
                audio.push_back(range);
        }
        engine.coverage[std::string(id)] = normalizeRanges(std::move(video));
        engine.audioCoverage[std::string(id)] = normalizeRanges(std::move(audio));
    }
}

CutEngine buildEngine(const ProjectOutline& outline, VisitBudget& budget)
{
    CutEngine engine;
    readFrameDuration(engine, outline);
    readTimes(engine, outline);
    refuseUnsupportedSettings(outline.original);
    const auto audioSource = uniqueAudioSource(outline.original);
    if (audioSource)
        engine.audioID = audioSource->attribute("angleID").value_or("");
    const auto multicamFormat = outline.resources.format(outline.multicam.attribute("format"));
    if (!multicamFormat || !formatsMatch(*outline.format, *multicamFormat))
        refuse("The multicam and project need matching frame rate, dimensions and colour format.");
    readCoverage(engine, outline, budget);
    engine.source = std::make_shared<const SourceDocument>(SourceDocument{
        outline.document, outline.project, outline.sequence, outline.original, outline.multicam, audioSource});
    return engine;
}

} // namespace

LoadedProject loadProject(const xml::Document& document)
{
    const ProjectOutline outline = outlineProject(document);
    VisitBudget budget;
    ImportedProject imported = importProject(outline, budget);
    return {std::move(imported), buildEngine(outline, budget)};
}

LoadedProject loadProject(std::string_view bytes)
{
    return loadProject(xml::Document::parse(bytes));
}

CutEngine buildEngine(std::string_view bytes)
{
    return loadProject(bytes).engine;
}

} // namespace corvane
