#include "analysis/export_forecast.h"

#include "analysis/names.h"
#include "base/numbers.h"
#include "base/text.h"
#include "engine/setting_limits.h"
#include "engine/validation.h"
#include "export/source_items.h"
#include "import/final_cut_import_error.h"
#include "import/source_document.h"
#include "import/time_values.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace corvane {

namespace {

using KindWord = std::pair<std::string_view, std::string_view>;

std::string kindOf(xml::Element item)
{
    constexpr std::array<KindWord, 10> words = {
        KindWord{"marker", "Marker"},
        {"chapter-marker", "Chapter marker"},
        {"keyword", "Keyword"},
        {"rating", "Rating"},
        {"analysis-marker", "Analysis marker"},
        {"hidden-clip-marker", "Hidden marker"},
        {"title", "Title"},
        {"caption", "Caption"},
        {"spine", "Connected storyline"},
        {"audition", "Audition"}};
    const auto word = std::ranges::find(words, item.plainName(), &KindWord::first);
    return std::string(word == words.end() ? "Connected clip" : word->second);
}

/// "Keyword 'December 7th'".
std::string nameOf(xml::Element item)
{
    const bool hasValue = item.named("marker") || item.named("chapter-marker") || item.named("keyword");
    const std::string_view name = item.attribute(hasValue ? "value" : "name").value_or("");
    return kindOf(item) + (name.empty() ? "" : " '" + std::string(name) + "'");
}

std::optional<double> readSeconds(std::optional<std::string_view> text)
{
    try {
        return parseSeconds(text);
    } catch (const FinalCutImportError&) {
        return std::nullopt;
    }
}

/// " at 01:12:31:04", the frame in which the item begins; empty if that cannot be read.
std::string placeOf(const CutEngine& engine, xml::Element item)
{
    if (!isAnnotation(item.plainName()))
        return "";
    const auto start = item.attribute("start");
    const auto seconds = start ? readSeconds(start) : engine.seconds(engine.sourceStart);
    constexpr double tolerance = 0.000001; // of a frame: an item that is on a frame gets exactly that frame
    const double frame = seconds ? std::floor(engine.frames(*seconds) + tolerance) : largestFrameCount + 1.0;
    if (std::abs(frame) > largestFrameCount)
        return "";
    return " at " + timecodeLabel(engine, wholeFrames(frame) - engine.sourceStart);
}

std::string sentence(
    const ImportedProject& project, const CutEngine& engine, std::string_view audioAngle, const RefusedSource& refused)
{
    if (!refused.item)
        return "The document does not name its FCPXML version; the export will refuse it. Export XML from Final Cut "
               "again.";
    const xml::Element item = *refused.item;
    const std::string attribute(refused.attribute);
    const bool isFade = item.named("fadeIn") || item.named("fadeOut");
    const std::string subject = isFade ? "A fade of the audio of " + shownText(angleLabel(project, audioAngle))
                                       : shownText(nameOf(item)) + placeOf(engine, item);
    const auto text = item.attribute(refused.attribute);
    const std::string remedy = "; the export will refuse it. " +
                               std::string(isFade ? "Remove it" : "Move or remove it") +
                               " in Final Cut and export XML again.";
    if (!isAnnotation(item.plainName()) || !readSeconds(text))
        return subject + " has no readable " + attribute + (text ? " (" + shownText(*text) + ")" : "") + remedy;
    const bool isFar = std::abs(engine.frames(*readSeconds(text))) > largestFrameCount;
    if (isFar)
        return subject + " has a " + attribute + " that is too large to count in frames" + remedy;
    return subject + (attribute == "start" ? " is not on a frame boundary" : " does not end on a frame boundary") +
           remedy;
}

} // namespace

std::vector<std::string> announcedRefusals(
    const ImportedProject& project, const CutEngine& engine, std::string_view audioAngle)
{
    constexpr std::size_t most = 1'000; // more than anyone mends one by one
    std::vector<std::string> sentences;
    for (const RefusedSource& refused : refusedSources(engine, audioAngle, most))
        sentences.push_back(sentence(project, engine, audioAngle, refused));
    if (sentences.size() == most)
        sentences.emplace_back("The list ends here; the export may refuse more. Mend these first.");
    return sentences;
}

std::vector<std::string> fadeAdvice(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, std::string_view decimalSign)
{
    std::vector<std::string> advice;
    if (!engine.source)
        return advice;
    double fadeIn = 0;
    double fadeOut = 0;
    forEachAudioFade(engine, settings.audio, [&](xml::Element fade) {
        double& longest = fade.named("fadeIn") ? fadeIn : fadeOut;
        longest = std::max(longest, readSeconds(fade.attribute("duration")).value_or(0));
    });
    const auto advise = [&](double fade, bool enabled, double seconds, const std::string& shot) {
        // Without a bookend the shot is drawn, and rarely shorter than the shorter minimum.
        const double held = enabled ? engine.seconds(roundedFrames(engine, seconds))
                                    : std::min(settings.mainMinimum, settings.otherMinimum);
        if (fade <= 0 || held + fadeTolerance >= fade)
            return;
        const double needed = std::max(limits::bookendLength.lowest, std::ceil(fade));
        const std::string subject =
            "A fade of " + shortNumber(fade, decimalSign) + " s on " + angleLabel(project, settings.audio);
        advice.push_back(
            needed > limits::bookendLength.highest ? subject + " is longer than any " + shot +
                                                         " shot can be. Shorten it in Final Cut and export XML again."
                                                   : subject + " needs " + (shot == "opening" ? "an " : "a ") + shot +
                                                         " of at least " + fixed(needed, 0) + " s.");
    };
    advise(fadeIn, settings.openingEnabled, settings.openingSeconds, "opening");
    advise(fadeOut, settings.closingEnabled, settings.closingSeconds, "closing");
    return advice;
}

bool hasAudioFades(const CutEngine& engine, std::string_view audioAngle)
{
    bool any = false;
    if (engine.source)
        forEachAudioFade(engine, audioAngle, [&](xml::Element) { any = true; });
    return any;
}

} // namespace corvane
