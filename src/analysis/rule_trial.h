#pragma once

#include "base/random.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <chrono>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Of the same figure in many edits.
struct Spread {
    double lowest = 0;
    double median = 0;
    double highest = 0;
    bool operator==(const Spread&) const = default;
};

/// Percent of the screen time that each camera is to have: the main camera's target, and what it leaves the others by
/// their weights.
[[nodiscard]] std::map<std::string, double, std::less<>> targetShares(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// What the settings give when they are drawn again and again. Nothing of it is kept or shown as an edit.
struct RuleTrial {
    struct Camera {
        std::string id;
        Spread share;                 ///< percent of the project
        std::optional<double> target; ///< percent; none for one that is only in sections and bookends
    };
    std::optional<std::string> refusal; ///< what Generate says before it draws; then there are no tries
    std::size_t tries = 0;              ///< those that were refused included
    std::size_t refused = 0;
    std::string firstRefusal;
    std::vector<Camera> cameras; ///< those in use, in project order; empty when every try was refused
    Spread cuts;
    double shortest = 0; ///< seconds, of all edits
    double longest = 0;
    std::size_t withShortShots = 0; ///< edits that have shots under a second
    std::size_t mostShortShots = 0; ///< in one edit
};

/// As many as are made in this time, one at least.
struct TrialLimits {
    std::size_t tries = 1000;
    std::chrono::milliseconds time{200};
};

/// Draws edits after the checks that Generate makes. Random numbers come from `draws`, by default from a source of the
/// trial's own.
[[nodiscard]] RuleTrial tryRules(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    const TrialLimits& limits = {}, UniformDraws draws = {});

/// "1000 tries: 48 cuts (44 to 53), shots from 1.2 to 50 seconds, none under a second." and how many were refused, why.
[[nodiscard]] std::string trialSummary(const RuleTrial& trial, std::string_view decimalSign = ".");

/// "67.2%" and "60.1% to 74.9%", with a point as in the table of usage.
[[nodiscard]] std::string medianText(const Spread& share);
[[nodiscard]] std::string rangeText(const Spread& share);
/// "70.0%", or a dash without a target.
[[nodiscard]] std::string targetText(const RuleTrial::Camera& camera);

} // namespace corvane
