#include "analysis/rule_trial.h"

#include "base/numbers.h"
#include "engine/coverage_report.h"
#include "engine/cut_generation.h"
#include "engine/generation_inputs.h"
#include "engine/validation.h"
#include "import/final_cut_import_error.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <random>
#include <span>

namespace corvane {

namespace {

/// A fast generator that is good enough for trials; edits never use it.
RandomNumbers quickRandomNumbers()
{
    std::array<std::uint64_t, 1> seed{};
    fillWithRandomBytes(std::as_writable_bytes(std::span(seed)));
    return [random = std::mt19937_64(seed[0])]() mutable { return static_cast<double>(random() >> 11U) * 0x1p-53; };
}

Spread spreadOf(std::vector<double> values)
{
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    const double median = values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
    return {values.front(), median, values.back()};
}

/// Collects the figures of one edit after the other.
class Figures {
public:
    explicit Figures(const CutEngine& engine) : engine_(engine) {}

    void add(const std::vector<Cut>& cuts, RuleTrial& trial)
    {
        std::size_t underASecond = 0;
        for (const Cut& cut : cuts) {
            const double seconds = engine_.seconds(cut.duration);
            trial.shortest = edits_ == 0 && &cut == &cuts.front() ? seconds : std::min(trial.shortest, seconds);
            trial.longest = std::max(trial.longest, seconds);
            underASecond += seconds < 1 ? 1 : 0;
        }
        trial.withShortShots += underASecond > 0 ? 1 : 0;
        trial.mostShortShots = std::max(trial.mostShortShots, underASecond);
        counts_.push_back(static_cast<double>(cuts.size()));
        for (const auto& [camera, usage] : cameraUsage(cuts)) {
            auto& shares = shares_[camera];
            shares.resize(edits_, 0);
            shares.push_back(static_cast<double>(usage.frames) / static_cast<double>(engine_.length) * 100);
        }
        ++edits_;
    }

    void finish(RuleTrial& trial, const ImportedProject& project, const EditSettings& settings)
    {
        if (edits_ == 0)
            return;
        trial.cuts = spreadOf(std::move(counts_));
        const auto wanted = targetShares(project, engine_, settings);
        for (const ImportedAngle& angle : videoAngles(project, engine_)) {
            const auto target = wanted.find(angle.id);
            if (target == wanted.end() && !shares_.contains(angle.id))
                continue;
            auto& shares = shares_[angle.id];
            shares.resize(edits_, 0);
            trial.cameras.push_back(
                {angle.id, spreadOf(std::move(shares)),
                 target == wanted.end() ? std::nullopt : std::optional(target->second)});
        }
    }

private:
    const CutEngine& engine_;
    std::size_t edits_ = 0;
    std::vector<double> counts_;
    std::map<std::string, std::vector<double>, std::less<>>
        shares_; ///< in percent; edits without the camera may be missing
};

} // namespace

std::map<std::string, double, std::less<>> targetShares(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings)
{
    const auto weight = [&](const std::string& camera) { return frequencyOf(settings.frequencies, camera); };
    const auto others = includedOtherCameras(project, engine, settings);
    double total = 0;
    for (const std::string& camera : others)
        total += weight(camera);
    std::map<std::string, double, std::less<>> targets = {{settings.mainCamera, settings.mainShare}};
    for (const std::string& camera : others)
        targets[camera] = (100 - settings.mainShare) * weight(camera) / total;
    return targets;
}

RuleTrial tryRules(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, const TrialLimits& limits,
    RandomNumbers draws)
{
    RuleTrial trial;
    GenerationInputs inputs;
    try {
        checkContinuousAudio(engine, settings.audio);
        inputs = generationInputs(project, engine, settings);
        (void)validateInputs(engine, inputs);
    } catch (const FinalCutImportError& refusal) {
        trial.refusal = refusal.what();
        return trial;
    }
    const GenerationSources sources = {draws ? std::move(draws) : quickRandomNumbers(), [] { return Identifier(); }};
    Figures figures(engine);
    const auto end = std::chrono::steady_clock::now() + limits.time;
    std::chrono::steady_clock::duration slowest{}; // another one would still have to fit
    auto now = std::chrono::steady_clock::now();
    do {
        const auto begun = now;
        ++trial.tries;
        try {
            figures.add(generateCuts(engine, inputs, sources), trial);
        } catch (const FinalCutImportError& refusal) {
            if (++trial.refused == 1)
                trial.firstRefusal = refusal.what();
        }
        now = std::chrono::steady_clock::now();
        slowest = std::max(slowest, now - begun);
    } while (trial.tries < limits.tries && now + slowest < end);
    figures.finish(trial, project, settings);
    return trial;
}

std::string trialSummary(const RuleTrial& trial, std::string_view decimalSign)
{
    if (trial.refusal)
        return *trial.refusal;
    const std::string tries = std::to_string(trial.tries) + (trial.tries == 1 ? " try" : " tries");
    std::string text = tries;
    const std::size_t edits = trial.tries - trial.refused;
    const auto number = [&](double value) { return shortNumber(value, decimalSign); };
    if (edits > 0) {
        text += ": " + number(std::round(trial.cuts.median)) + " cuts (" + number(trial.cuts.lowest) + " to " +
                number(trial.cuts.highest) + "), shots of " + number(trial.shortest) + " to " + number(trial.longest) +
                " seconds";
        text += trial.mostShortShots == 0
                    ? ", none under a second."
                    : ", up to " + std::to_string(trial.mostShortShots) + " under a second in an edit (" +
                          std::to_string(trial.withShortShots) + " of " + std::to_string(edits) + " edits have some).";
    }
    if (trial.refused == 0)
        return text;
    const std::string refused = edits == 0 ? ", all refused: " : " " + std::to_string(trial.refused) + " refused: ";
    return text + refused + trial.firstRefusal;
}

std::string medianText(const Spread& share)
{
    return fixed(share.median, 1) + "%";
}

std::string rangeText(const Spread& share)
{
    return fixed(share.lowest, 1) + "% to " + fixed(share.highest, 1) + "%";
}

std::string targetText(const RuleTrial::Camera& camera)
{
    return camera.target ? fixed(*camera.target, 1) + "%" : "–";
}

} // namespace corvane
