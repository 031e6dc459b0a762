#pragma once

#include "engine/cut_generation.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <map>
#include <string>
#include <vector>

namespace corvane {

/// The angles that have any video, in project order.
[[nodiscard]] std::vector<ImportedAngle> videoAngles(const ImportedProject& project, const CutEngine& engine);

/// The included other cameras in project order: the video angles in `settings.otherCameras`, without the main camera.
[[nodiscard]] std::vector<std::string> includedOtherCameras(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// The sections in list order, with their timecodes read. Refuses what parseTimecode refuses, checking each start
/// before its end.
[[nodiscard]] std::vector<FixedCameraSection> fixedSections(
    const CutEngine& engine, const std::vector<SectionDraft>& drafts);

/// The engine's inputs for the settings on screen. Refuses section timecodes that cannot be read.
[[nodiscard]] GenerationInputs generationInputs(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// What "Generate rough edit" does: checks the audio angle, reads the settings and generates the cuts.
[[nodiscard]] std::vector<Cut> generateFromSettings(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    const GenerationSources& sources = {});

} // namespace corvane
