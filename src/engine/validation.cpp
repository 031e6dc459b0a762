#include "engine/validation.h"

#include "engine/setting_limits.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string_view>

namespace corvane {

namespace {

void require(bool condition, const std::string& otherwise)
{
    if (!condition)
        throw FinalCutImportError::invalid(otherwise);
}

/// True for a valid share of the screen time, as a fraction.
bool isShare(double fraction)
{
    return fraction >= limits::mainShare.lowest / 100 && fraction <= limits::mainShare.highest / 100;
}

bool camerasUsable(const CutEngine& engine, const GenerationInputs& inputs)
{
    if (inputs.otherCameras.empty())
        return false;
    std::set<std::string_view> seen;
    const auto usable = [&](const std::string& camera) {
        return seen.insert(camera).second && !engine.videoRanges(camera).empty();
    };
    return usable(inputs.mainCamera) && std::ranges::all_of(inputs.otherCameras, usable);
}

void requireBookendFootage(
    const CutEngine& engine, const std::optional<BookendShot>& shot, std::string_view which, Frames start, Frames end)
{
    require(
        !shot || hasFootage(engine, shot->angle, start, end),
        "The chosen " + std::string(which) +
            " camera does not have footage for the whole requested shot. Choose another camera or shorten the shot.");
}

} // namespace

EditFrame validateInputs(const CutEngine& engine, const GenerationInputs& inputs)
{
    const std::string chooseCameras = "Choose a main camera and at least one additional video angle.";
    require(limits::returnTime.holdAll(inputs.returnTimes), "Minimum return times must be between 0 and 600 seconds.");
    require(camerasUsable(engine, inputs), chooseCameras);
    // This order and these texts are fixed. The window offers no share or average shot outside the limits.
    require(isShare(inputs.mainShare) && limits::averageShot.hold(inputs.averageShot), chooseCameras);
    require(limits::frequency.holdAll(inputs.frequencies), "Camera frequency must be between 1 and 10.");
    for (const auto& range : {inputs.mainRange, inputs.otherRange}) {
        require(
            !range || (range->lower >= limits::shotLength.lowest && range->upper <= limits::shotLength.highest),
            "Shot lengths must be between 1 and 120 seconds.");
    }

    EditFrame frame;
    frame.openingFrames = bookendFrames(engine, inputs.opening);
    frame.closingFrames = bookendFrames(engine, inputs.closing);
    require(
        engine.length >= frame.openingFrames + frame.closingFrames,
        "The opening and closing shots are longer than the project. Reduce their lengths.");
    frame.freeStart = frame.openingFrames;
    frame.freeEnd = engine.length - frame.closingFrames;
    requireBookendFootage(engine, inputs.opening, "opening", 0, frame.openingFrames);
    requireBookendFootage(engine, inputs.closing, "closing", frame.freeEnd, engine.length);
    frame.fixedSections = validateFixedSections(engine, inputs.fixedSections, frame.freeStart, frame.freeEnd);
    return frame;
}

Frames bookendFrames(const CutEngine& engine, const std::optional<BookendShot>& shot)
{
    if (!shot)
        return 0;
    require(
        limits::bookendLength.hold(shot->seconds), "Opening and closing lengths must be between 1 and 120 seconds.");
    return bookendLength(engine, shot->seconds);
}

std::vector<FixedCameraSection> validateFixedSections(
    const CutEngine& engine, std::vector<FixedCameraSection> sections, Frames freeStart, Frames freeEnd)
{
    std::ranges::stable_sort(sections, {}, &FixedCameraSection::start);
    Frames previousEnd = freeStart;
    for (const FixedCameraSection& section : sections) {
        require(
            section.start >= freeStart && section.end <= freeEnd && section.end > section.start,
            "Fixed sections must have an end after their start, stay inside the project, and not overlap opening or "
            "closing shots.");
        require(section.start >= previousEnd, "Fixed camera sections overlap. Adjust their start or end timecodes.");
        if (!hasFootage(engine, section.angle, section.start, section.end))
            throw FinalCutImportError::invalid(
                "The camera chosen for a fixed section has missing footage between " +
                timecodeLabel(engine, section.start) + " and " + timecodeLabel(engine, section.end) +
                ". Choose another camera or shorten the section.");
        previousEnd = section.end;
    }
    return sections;
}

bool hasFootage(const CutEngine& engine, std::string_view camera, Frames start, Frames end)
{
    // Normalised ranges are sorted and do not touch, so only the last one that starts at or before `start` can contain
    // it.
    const auto& ranges = engine.videoRanges(camera);
    const auto after = std::ranges::upper_bound(ranges, start, {}, &FrameRange::start);
    return after != ranges.begin() && std::prev(after)->holds(start, end);
}

std::optional<CutListFault> cutListFault(const CutEngine& engine, const std::vector<Cut>& cuts)
{
    Frames position = 0;
    for (const Cut& cut : cuts) {
        if (cut.start != position || cut.duration <= 0 || cut.duration > engine.length - position ||
            !hasFootage(engine, cut.angle, cut.start, cut.start + cut.duration))
            return CutListFault::invalidCut;
        position += cut.duration;
    }
    return position == engine.length ? std::nullopt : std::optional(CutListFault::incomplete);
}

Frames wholeFrames(double frames)
{
    constexpr double farBeyondAnyProject = 1e15;
    return std::isnan(frames) ? 0 : static_cast<Frames>(std::clamp(frames, -farBeyondAnyProject, farBeyondAnyProject));
}

Frames roundedFrames(const CutEngine& engine, double seconds)
{
    return wholeFrames(std::round(engine.frames(seconds)));
}

Frames bookendLength(const CutEngine& engine, double seconds)
{
    return std::max<Frames>(1, roundedFrames(engine, seconds));
}

} // namespace corvane
