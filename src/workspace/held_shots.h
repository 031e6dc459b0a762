#pragma once

#include "base/identifier.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"

#include <cstddef>
#include <vector>

/// Shots of an edit that become fixed sections, so that the next edit has them too. `cuts` must have been generated
/// with the settings; `chosen` are positions in it, in any order, and those out of range are ignored.
namespace corvane {

/// The chosen cuts that chance has made, in order: neither opening nor closing shots nor fixed sections.
[[nodiscard]] std::vector<Cut> shotsToHold(
    const CutEngine& engine, const EditSettings& settings, const std::vector<Cut>& cuts,
    const std::vector<std::size_t>& chosen);

/// Adds a fixed section for each of the shots, which must be in order, before the first section that starts later.
/// Refuses a shot whose timecodes do not read back as its frames, and then has changed nothing.
void addHeldSections(
    const CutEngine& engine, EditSettings& settings, const std::vector<Cut>& shots, const IdentifierSource& newIds);

/// The positions of the fixed sections that are chosen cuts, in order.
[[nodiscard]] std::vector<std::size_t> sectionsToRelease(
    const CutEngine& engine, const EditSettings& settings, const std::vector<Cut>& cuts,
    const std::vector<std::size_t>& chosen);

} // namespace corvane
