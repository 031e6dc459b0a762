#pragma once

#include "import/final_cut_import_error.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// How many elements the walks over the angles of one document may visit. When compound clips use each other, a few
/// lines can stand for more clips than can be read; ten million visits take about a second.
struct VisitBudget {
    std::int64_t left = 10'000'000;

    void spend(std::string_view angleName)
    {
        if (--left < 0)
            throw FinalCutImportError::invalid(
                "Camera " + std::string(angleName) +
                " uses compound clips inside each other too many times to be read. Break apart these compound clips in "
                "Final Cut and export XML again.");
    }
};

} // namespace corvane
