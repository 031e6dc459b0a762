#include "session/starting_settings.h"

#include "engine/generation_inputs.h"
#include "engine/setting_limits.h"
#include "import/final_cut_import_error.h"

#include <algorithm>

namespace corvane {

EditSettings startingSettings(const ImportedProject& project, const CutEngine& engine, const EditSettings& current)
{
    const auto angles = videoAngles(project, engine);
    if (angles.size() < 2)
        throw FinalCutImportError::invalid("Include at least two video angles in your multicam.");
    EditSettings settings = current;
    settings.returnTimes.clear();
    settings.sections.clear();
    settings.openingEnabled = false;
    settings.closingEnabled = false;
    settings.mainCamera = angles.front().id;
    settings.openingCamera = settings.mainCamera;
    settings.closingCamera = settings.mainCamera;
    settings.otherCameras.clear();
    settings.frequencies.clear();
    for (auto angle = angles.begin() + 1; angle != angles.end(); ++angle) {
        settings.otherCameras.insert(angle->id);
        settings.frequencies[angle->id] = usualFrequency;
    }
    settings.audio = defaultAudioAngle(project, engine);
    return settings;
}

std::string defaultAudioAngle(const ImportedProject& project, const CutEngine& engine)
{
    const std::vector<FrameRange> wholeProject = {{0, engine.length}};
    const ImportedAngle* firstWithSound = nullptr;
    const ImportedAngle* firstThroughout = nullptr;
    for (const ImportedAngle& angle : project.angles) {
        const auto& stretches = engine.audioRanges(angle.id);
        if (stretches.empty())
            continue;
        if (angle.id == engine.audioID)
            return angle.id;
        if (firstWithSound == nullptr)
            firstWithSound = &angle;
        if (firstThroughout == nullptr && stretches == wholeProject)
            firstThroughout = &angle;
    }
    const ImportedAngle* chosen = firstThroughout != nullptr ? firstThroughout : firstWithSound;
    return chosen == nullptr ? "" : chosen->id;
}

} // namespace corvane
