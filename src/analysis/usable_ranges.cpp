#include "analysis/usable_ranges.h"

#include "analysis/names.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

/// The intersection of two normalised lists, itself normalised.
std::vector<FrameRange> inBoth(const std::vector<FrameRange>& one, const std::vector<FrameRange>& other)
{
    std::vector<FrameRange> both;
    auto a = one.begin();
    auto b = other.begin();
    while (a != one.end() && b != other.end()) {
        const FrameRange piece = {std::max(a->start, b->start), std::min(a->end, b->end)};
        if (piece.start < piece.end)
            both.push_back(piece);
        ++(a->end < b->end ? a : b);
    }
    return both;
}

bool touches(const std::vector<FrameRange>& footage, const FrameRange& range)
{
    const auto after = std::ranges::upper_bound(footage, range.start, {}, &FrameRange::end);
    return after != footage.end() && after->start < range.end;
}

/// What there is to see, whichever audio is chosen.
struct PictureRanges {
    std::vector<FrameRange> shown; ///< where a camera that may be on screen has footage; normalised
    std::vector<const std::vector<FrameRange>*> angles;
};

/// None while the settings would be refused.
std::optional<PictureRanges> pictureRanges(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings)
{
    CoverageReport report = selectedCoverage(project, engine, settings);
    if (report.message)
        return std::nullopt;
    PictureRanges pictures = {normalizeRanges(std::move(report.covered)), {}};
    for (const ImportedAngle& angle : videoAngles(project, engine))
        pictures.angles.push_back(&engine.videoRanges(angle.id));
    return pictures;
}

UsableRanges withAudio(const PictureRanges& pictures, const CutEngine& engine, std::string_view audio)
{
    const auto frames = inBoth(pictures.shown, engine.audioRanges(audio));
    UsableRanges usable;
    for (const FrameRange& range : frames) {
        const auto shows = [&](const auto* footage) { return touches(*footage, range); };
        const auto first = std::ranges::find_if(pictures.angles, shows);
        if (first == pictures.angles.end() || std::none_of(first + 1, pictures.angles.end(), shows))
            continue;
        usable.offered.push_back(range);
        usable.frames += range.end - range.start;
    }
    for (const FrameRange& gap : uncoveredStretches(frames, engine.length)) {
        if (gap.end - gap.start < 2)
            usable.roundings.push_back(gap.start);
    }
    usable.wholeProject = usable.offered == std::vector<FrameRange>{{0, engine.length}};
    return usable;
}

std::string rangeText(const CutEngine& engine, const FrameRange& range)
{
    return timecodeLabel(engine, range.start) + " to " + timecodeLabel(engine, range.end);
}

std::string rangeCount(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " range" : " ranges");
}

const FrameRange& longestOf(const std::vector<FrameRange>& ranges)
{
    return *std::ranges::max_element(ranges, {}, [](const FrameRange& range) { return range.end - range.start; });
}

std::string roundingsText(const CutEngine& engine, const std::vector<Frames>& roundings)
{
    if (roundings.empty())
        return "";
    std::string text = "\nRounding of recordings: a single frame without footage or sound at ";
    constexpr std::size_t most = 50;
    for (std::size_t i = 0; i < std::min(most, roundings.size()); ++i)
        text += (i == 0 ? "" : ", ") + timecodeLabel(engine, roundings[i]);
    if (roundings.size() > most)
        text += " and " + std::to_string(roundings.size() - most) + " more";
    return text + ".\nIn Final Cut, open the multicam clip in the angle editor and make the recording before each of "
                  "them a frame longer, or trim the project where such a frame is its first or last; then export XML "
                  "again.\n";
}

std::string audioList(const ImportedProject& project, const CutEngine& engine, const std::vector<OtherAudio>& others)
{
    if (others.empty())
        return "";
    std::string text = "\nWith another continuous audio:\n";
    for (const OtherAudio& other : others)
        text += angleLabel(project, other.angle) + ": " + percentText(other.usable.frames, engine.length) + ", " +
                rangeCount(other.usable.offered.size()) + "\n";
    return text;
}

} // namespace

std::optional<UsableRanges> usableRanges(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings)
{
    const auto pictures = pictureRanges(project, engine, settings);
    return pictures ? std::optional(withAudio(*pictures, engine, settings.audio)) : std::nullopt;
}

std::vector<OtherAudio> otherAudioAngles(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings)
{
    std::vector<OtherAudio> others;
    const auto pictures = pictureRanges(project, engine, settings);
    if (!pictures)
        return others;
    for (const ImportedAngle& angle : project.angles) {
        if (angle.id != settings.audio && !engine.audioRanges(angle.id).empty())
            others.push_back({angle.id, withAudio(*pictures, engine, angle.id)});
    }
    std::ranges::stable_sort(others, std::greater(), [](const OtherAudio& other) { return other.usable.frames; });
    return others;
}

std::string percentText(Frames part, Frames whole)
{
    const double percent = static_cast<double>(part) / static_cast<double>(whole) * 100;
    if (part > 0 && percent < 1)
        return "less than 1 %";
    if (part < whole && percent > 99)
        return "more than 99 %";
    return std::to_string(std::lround(percent)) + " %";
}

std::string usableLine(const CutEngine& engine, const EditSettings& settings, const UsableRanges& usable)
{
    if (usable.wholeProject)
        return "";
    if (usable.offered.empty())
        return settings.audio.empty() ? "Usable: no range without continuous audio" : "Usable: no range";
    const std::size_t count = usable.offered.size();
    return "Usable: " + rangeCount(count) + ", " + percentText(usable.frames, engine.length) + " of the project; " +
           (count == 1 ? "" : "the longest ") + rangeText(engine, longestOf(usable.offered));
}

std::string betterAudioLine(
    const ImportedProject& project, const CutEngine& engine, const UsableRanges& usable,
    const std::vector<OtherAudio>& others)
{
    if (others.empty() || others.front().usable.frames <= usable.frames)
        return "";
    return "With the audio of " + angleLabel(project, others.front().angle) + ": " +
           percentText(others.front().usable.frames, engine.length);
}

std::string usableList(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, const UsableRanges& usable,
    const std::vector<OtherAudio>& others)
{
    if (usable.wholeProject)
        return "";
    std::string text = usableLine(engine, settings, usable) + "\n";
    if (!usable.offered.empty())
        text += "\nBlade at\tand at\tLength\n";
    for (const FrameRange& range : usable.offered)
        text += timecodeLabel(engine, range.start) + "\t" + timecodeLabel(engine, range.end) + "\t" +
                timecodeLength(engine, range.end - range.start) + "\n";
    if (!usable.offered.empty())
        text += "\nIn Final Cut, make a duplicate of the project for each range that you want. In it, blade the "
                "multicam clip at both timecodes, delete what is before and after the range, so that it begins the "
                "timeline, and export XML. Where a range begins or ends with the project there is nothing to blade.\n";
    return text + roundingsText(engine, usable.roundings) + audioList(project, engine, others);
}

} // namespace corvane
