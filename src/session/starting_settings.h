#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <string>

namespace corvane {

/// The settings after an import: the first video angle is the main camera and all others are included; there are no
/// bookends or fixed sections; the pacing of `current` is kept. Refuses a project with fewer than two video angles.
[[nodiscard]] EditSettings startingSettings(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& current = {});

/// Of the angles with audio: the one that the multicam clip itself plays, otherwise the first that covers the whole
/// project, otherwise the first. Empty if no angle has audio.
[[nodiscard]] std::string defaultAudioAngle(const ImportedProject& project, const CutEngine& engine);

} // namespace corvane
