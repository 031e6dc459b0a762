#include "engine/generation_inputs.h"

#include "engine/coverage_report.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <iterator>

namespace corvane {

std::vector<ImportedAngle> videoAngles(const ImportedProject& project, const CutEngine& engine)
{
    std::vector<ImportedAngle> angles;
    std::ranges::copy_if(project.angles, std::back_inserter(angles), [&](const ImportedAngle& angle) {
        return !engine.videoRanges(angle.id).empty();
    });
    return angles;
}

std::vector<std::string> includedOtherCameras(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings)
{
    std::vector<std::string> cameras;
    for (const ImportedAngle& angle : videoAngles(project, engine)) {
        if (angle.id != settings.mainCamera && settings.otherCameras.contains(angle.id))
            cameras.push_back(angle.id);
    }
    return cameras;
}

std::vector<FixedCameraSection> fixedSections(const CutEngine& engine, const std::vector<SectionDraft>& drafts)
{
    std::vector<FixedCameraSection> sections;
    for (const SectionDraft& draft : drafts) {
        const Frames start = parseTimecode(engine, draft.start);
        const Frames end = parseTimecode(engine, draft.end);
        sections.push_back({draft.camera, start, end});
    }
    return sections;
}

GenerationInputs generationInputs(const ImportedProject& project, const CutEngine& engine, const EditSettings& settings)
{
    GenerationInputs inputs;
    inputs.mainShare = settings.mainShare / 100;
    inputs.averageShot = settings.averageShot;
    inputs.mainCamera = settings.mainCamera;
    inputs.otherCameras = includedOtherCameras(project, engine, settings);
    inputs.doubleMain = settings.doubleMain;
    inputs.mainRange = ShotLengthRange{settings.mainMinimum, settings.mainMaximum};
    inputs.otherRange = ShotLengthRange{settings.otherMinimum, settings.otherMaximum};
    if (settings.openingEnabled)
        inputs.opening = BookendShot{settings.openingCamera, settings.openingSeconds};
    if (settings.closingEnabled)
        inputs.closing = BookendShot{settings.closingCamera, settings.closingSeconds};
    inputs.frequencies = settings.frequencies;
    inputs.fixedSections = fixedSections(engine, settings.sections);
    inputs.returnTimes = settings.returnTimes;
    return inputs;
}

std::vector<Cut> generateFromSettings(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    const GenerationSources& sources)
{
    checkContinuousAudio(engine, settings.audio);
    return generateCuts(engine, generationInputs(project, engine, settings), sources);
}

} // namespace corvane
