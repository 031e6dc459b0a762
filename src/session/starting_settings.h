#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <string>

namespace corvane {

/// What an import puts on screen: the first video angle is the main camera and all others are included, no bookends
/// and no sections; the pacing of `current` is kept. Refuses a project with fewer than two video angles.
[[nodiscard]] EditSettings startingSettings(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& current = {});

/// Among the angles with sound: the one that the multicam clip itself plays, else the first that plays over the whole
/// project, else the first; empty when no angle has sound.
[[nodiscard]] std::string defaultAudioAngle(const ImportedProject& project, const CutEngine& engine);

} // namespace corvane
