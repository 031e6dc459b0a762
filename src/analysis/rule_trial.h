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

/// The distribution of one figure over many edits.
struct Spread {
    double lowest = 0;
    double median = 0;
    double highest = 0;
    bool operator==(const Spread&) const = default;
};

/// The share of the screen time, in percent, that each camera should have: the main camera's target, and the rest
/// divided among the others by weight.
[[nodiscard]] std::map<std::string, double, std::less<>> targetShares(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// What the settings give when many edits are generated. None of these edits is kept or shown.
struct RuleTrial {
    struct Camera {
        std::string id;
        Spread share;                 ///< percent of the project
        std::optional<double> target; ///< percent; none for a camera that is only in sections and bookends
    };
    std::optional<std::string> refusal; ///< why Generate would refuse before any draw; then there are no tries
    std::size_t tries = 0;              ///< including those that were refused
    std::size_t refused = 0;
    std::string firstRefusal;
    std::vector<Camera> cameras; ///< the cameras in use, in project order; empty if every try was refused
    Spread cuts;
    double shortest = 0; ///< seconds, of all edits
    double longest = 0;
    std::size_t withShortShots = 0; ///< the number of edits with shots of less than a second
    std::size_t mostShortShots = 0; ///< in one edit
};

/// A trial ends after this many tries or this time, but makes at least one try.
struct TrialLimits {
    std::size_t tries = 1000;
    std::chrono::milliseconds time{200};
};

/// Generates edits after making the same checks as Generate. Random numbers come from `draws`, by default from the
/// trial's own generator.
[[nodiscard]] RuleTrial tryRules(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    const TrialLimits& limits = {}, RandomNumbers draws = {});

/// "1000 tries: 48 cuts (44 to 53), shots of 1.2 to 50 seconds, none under a second." and how many were refused, and
/// why.
[[nodiscard]] std::string trialSummary(const RuleTrial& trial, std::string_view decimalSign = ".");

/// "67.2%" and "60.1% to 74.9%", with a decimal point as in the usage table.
[[nodiscard]] std::string medianText(const Spread& share);
[[nodiscard]] std::string rangeText(const Spread& share);
/// "70.0%", or a dash if there is no target.
[[nodiscard]] std::string targetText(const RuleTrial::Camera& camera);

} // namespace corvane
