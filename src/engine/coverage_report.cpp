#include "engine/coverage_report.h"

#include "base/numbers.h"
#include "engine/generation_inputs.h"
#include "engine/validation.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <limits>

namespace corvane {

namespace {

/// Appends the part of the camera's footage that is in [from, to).
void addFootage(
    std::vector<FrameRange>& covered, const CutEngine& engine, std::string_view camera, Frames from, Frames to)
{
    const auto& ranges = engine.videoRanges(camera);
    const auto beforeEnd = [](Frames frame, const FrameRange& range) { return frame < range.end; };
    for (auto each = std::upper_bound(ranges.begin(), ranges.end(), from, beforeEnd);
         each != ranges.end() && each->start < to; ++each) {
        const FrameRange piece = {std::max(each->start, from), std::min(each->end, to)};
        if (piece.start < piece.end)
            covered.push_back(piece);
    }
}

/// A cut list that was never checked may contain any numbers, so sums are clamped to 64 bits.
Frames saturatedSum(Frames a, Frames b)
{
    Frames sum = 0;
    if (!__builtin_add_overflow(a, b, &sum))
        return sum;
    return a < 0 ? std::numeric_limits<Frames>::min() : std::numeric_limits<Frames>::max();
}

/// Like bookendFrames, but refuses nothing.
Frames lengthOf(const CutEngine& engine, const std::optional<BookendShot>& shot)
{
    return shot ? bookendLength(engine, shot->seconds) : 0;
}

std::string gapWarning(const CutEngine& engine, FrameRange gap, std::string_view decimalSign)
{
    return std::string("No selected video") + (gap.end == engine.length ? " at the ending" : "") + ": " +
           timecodeLabel(engine, gap.start) + " to " + timecodeLabel(engine, gap.end) + " (" +
           shortNumber(engine.seconds(gap.end - gap.start), decimalSign) +
           " seconds). Choose a camera with footage or trim that section in Final Cut.";
}

} // namespace

UsageByCamera cameraUsage(const std::vector<Cut>& cuts)
{
    UsageByCamera usage;
    const Cut* previous = nullptr;
    for (const Cut& cut : cuts) {
        CameraUsage& camera = usage[cut.angle];
        camera.id = cut.angle;
        camera.frames = saturatedSum(camera.frames, cut.duration);
        const bool continues = previous != nullptr && previous->angle == cut.angle &&
                               saturatedSum(previous->start, previous->duration) == cut.start;
        if (!continues)
            ++camera.shots;
        previous = &cut;
    }
    return usage;
}

std::vector<CameraShare> cameraShares(
    const ImportedProject& project, const CutEngine& engine, const std::vector<Cut>& cuts)
{
    const UsageByCamera usage = cameraUsage(cuts);
    std::vector<CameraShare> shares;
    for (const ImportedAngle& angle : videoAngles(project, engine)) {
        const auto found = usage.find(angle.id);
        const CameraUsage used = found == usage.end() ? CameraUsage{} : found->second;
        const double percent = static_cast<double>(used.frames) / static_cast<double>(engine.length) * 100;
        shares.push_back({angle, used.frames, used.shots, percent});
    }
    return shares;
}

CoverageReport uncoveredVideoSections(
    const CutEngine& engine, const std::vector<std::string>& cameras, const std::optional<BookendShot>& opening,
    const std::optional<BookendShot>& closing, const std::vector<FixedCameraSection>& sections)
{
    const Frames openingFrames = lengthOf(engine, opening);
    const Frames freeEnd = engine.length - lengthOf(engine, closing);
    if (freeEnd < openingFrames)
        return {{}, "Opening and closing shots exceed the project length. Shorten them."};

    CoverageReport report;
    Frames cursor = openingFrames;
    const auto addAllCameras = [&](Frames to) {
        for (const std::string& camera : cameras)
            addFootage(report.covered, engine, camera, cursor, to);
    };
    try {
        for (const FixedCameraSection& section : validateFixedSections(engine, sections, openingFrames, freeEnd)) {
            addAllCameras(section.start);
            addFootage(report.covered, engine, section.angle, section.start, section.end);
            cursor = section.end;
        }
    } catch (const FinalCutImportError& refusal) {
        return {{}, refusal.what()};
    }
    addAllCameras(freeEnd);
    if (opening)
        addFootage(report.covered, engine, opening->angle, 0, openingFrames);
    if (closing)
        addFootage(report.covered, engine, closing->angle, freeEnd, engine.length);
    return report;
}

CoverageReport selectedCoverage(const ImportedProject& project, const CutEngine& engine, const EditSettings& settings)
{
    try {
        const GenerationInputs inputs = generationInputs(project, engine, settings);
        std::vector<std::string> cameras = {inputs.mainCamera};
        cameras.insert(cameras.end(), inputs.otherCameras.begin(), inputs.otherCameras.end());
        return uncoveredVideoSections(engine, cameras, inputs.opening, inputs.closing, inputs.fixedSections);
    } catch (const FinalCutImportError& refusal) {
        return {{}, refusal.what()};
    }
}

std::vector<FrameRange> uncoveredStretches(std::vector<FrameRange> covered, Frames length)
{
    std::ranges::sort(covered, {}, &FrameRange::start);
    std::vector<FrameRange> gaps;
    Frames cursor = 0;
    for (const FrameRange& range : covered) {
        const Frames start = std::min(range.start, length);
        if (cursor < start)
            gaps.push_back({cursor, start});
        cursor = std::max({cursor, Frames{0}, std::min(range.end, length)});
    }
    if (cursor < length)
        gaps.push_back({cursor, length});
    return gaps;
}

std::optional<std::string> setupWarning(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, std::string_view decimalSign)
{
    const CoverageReport report = selectedCoverage(project, engine, settings);
    if (report.message)
        return report.message;
    const auto gaps = uncoveredStretches(report.covered, engine.length);
    if (!gaps.empty())
        return gapWarning(engine, gaps.front(), decimalSign);
    if (settings.audio.empty())
        return std::nullopt;
    const auto silences = uncoveredStretches(engine.audioRanges(settings.audio), engine.length);
    if (silences.empty())
        return std::nullopt;
    return "Selected audio has a gap at " + timecodeLabel(engine, silences.front().start) +
           ". Choose a continuous audio angle.";
}

void checkContinuousAudio(const CutEngine& engine, std::string_view audioAngle)
{
    if (engine.audioRanges(audioAngle) != std::vector<FrameRange>{{0, engine.length}})
        throw FinalCutImportError::invalid(
            "This audio angle does not cover the whole project. Choose a continuous audio angle.");
}

} // namespace corvane
