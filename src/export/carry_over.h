#pragma once

#include "import/cut_engine.h"

#include <string>
#include <vector>

namespace corvane {

/// The parts of the project's multicam clip that a rough edit does not carry over.
struct CarryOver {
    /// The names of child elements that no clip carries over (video filters, adjustments of the whole clip …), each
    /// once.
    std::vector<std::string> leftOut;
    /// Items whose reference to a tracked shape is broken in the written project, because the shape belongs to an angle
    /// source and gets a new id in every clip: "title Sermon", "angle Wide".
    std::vector<std::string> lostTracking;
};

[[nodiscard]] CarryOver carryOver(const CutEngine& engine);

} // namespace corvane
