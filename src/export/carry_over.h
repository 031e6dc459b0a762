#pragma once

#include "import/cut_engine.h"

#include <string>
#include <vector>

namespace corvane {

/// What a rough edit leaves behind of the project's multicam clip.
struct CarryOver {
    /// Child elements that no piece takes over (video filters, adjustments of the whole clip …): each name once.
    std::vector<std::string> leftOut;
    /// Items whose reference to a tracked shape leads nowhere in the written project, because the shape belongs to an
    /// angle source and gets a new identifier in every piece: "title Sermon", "angle Wide".
    std::vector<std::string> lostTracking;
};

[[nodiscard]] CarryOver carryOver(const CutEngine& engine);

} // namespace corvane
