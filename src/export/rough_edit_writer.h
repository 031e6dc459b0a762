#pragma once

#include "base/identifier.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The rough edit as a new FCPXML document: the source's resources and its project under a new name, with the multicam
/// clip split into one clip per cut. Each clip shows its cut's angle and plays the audio angle, which is the engine's
/// audioID if none is given. Markers, keywords and connected items go to the clips that they touch.
///
/// Refuses an audio angle that is not continuous, a cut list that does not cover the project without gaps and with
/// footage, a fade of the audio angle that is longer than the first or last cut, and annotation times that cannot be
/// read.
[[nodiscard]] std::string roughEditXML(
    const CutEngine& engine, const std::vector<Cut>& cuts, std::optional<std::string_view> audioAngle = std::nullopt,
    const IdentifierSource& identifiers = randomIdentifiers());

} // namespace corvane
