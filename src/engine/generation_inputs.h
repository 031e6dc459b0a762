#pragma once

#include "engine/cut_generation.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <string>
#include <vector>

namespace corvane {

/// The angles that have any video, in project order.
[[nodiscard]] std::vector<ImportedAngle> videoAngles(const ImportedProject& project, const CutEngine& engine);

/// The included other cameras in project order: video angles among `settings.otherCameras` but not the main camera.
[[nodiscard]] std::vector<std::string> includedOtherCameras(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// The drafts in list order, their timecodes read. Refuses as parseTimecode does, a start before its end.
[[nodiscard]] std::vector<FixedCameraSection> fixedSections(
    const CutEngine& engine, const std::vector<SectionDraft>& drafts);

/// What the settings on screen mean to the engine. Refuses unreadable section timecodes.
[[nodiscard]] GenerationInputs generationInputs(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// The whole of "Generate rough edit": the audio angle is checked, the settings are read, the cuts are drawn.
[[nodiscard]] std::vector<Cut> generateFromSettings(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    const GenerationSources& sources = {});

} // namespace corvane
