#include "analysis/rule_trial.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "import/project_loading.h"
#include "session/starting_settings.h"
#include "support/documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace corvane {
namespace {

using namespace test;

RandomNumbers repeatable()
{
    return [random = std::mt19937_64(7)]() mutable { return static_cast<double>(random() >> 11U) * 0x1p-53; };
}

TEST(RuleTrial, TellsWhatTheSameDrawsGiveAsEdits)
{
    Parts parts;
    for (const char* name : {"C", "D"})
        parts.angles += angle(name, clip("0s", "40s"));
    const LoadedProject project = loadProject(document(parts));
    EditSettings settings = startingSettings(project.imported, project.engine, {});
    settings.otherCameras.erase("D");
    settings.frequencies["C"] = 10;
    settings.otherMinimum = settings.mainMinimum = 1;
    const TrialLimits limits = {101, std::chrono::hours(1)};
    const RuleTrial trial = tryRules(project.imported, project.engine, settings, limits, repeatable());
    const GenerationSources sources = {repeatable(), [] { return Identifier(); }};
    std::vector<double> shares;
    std::vector<std::size_t> counts;
    for (std::size_t i = 0; i < limits.tries; ++i) {
        const auto cuts = generateFromSettings(project.imported, project.engine, settings, sources);
        counts.push_back(cuts.size());
        shares.push_back(static_cast<double>(cameraUsage(cuts)["C"].frames) / 10);
    }
    std::ranges::sort(shares);
    std::ranges::sort(counts);
    ASSERT_EQ(trial.cameras.size(), 3U) << "D is not in use";
    EXPECT_EQ(trial.cameras[2].id, "C");
    EXPECT_EQ(trial.cameras[2].share, (Spread{shares.front(), shares[50], shares.back()}));
    EXPECT_DOUBLE_EQ(*trial.cameras[2].target, 20);
    EXPECT_EQ(targetText(trial.cameras[0]), "70.0%");
    EXPECT_EQ(trial.cuts.median, static_cast<double>(counts[50]));
    EXPECT_TRUE(trialSummary(trial).starts_with("101 tries: ")) << trialSummary(trial);
}

TEST(RuleTrial, CountsWhatIsRefusedAndChecksAsGenerateDoes)
{
    Parts parts;
    parts.angles = angle("A", clip("0s", "20s") + clip("30s", "10s")) + angle("B", clip("0s", "40s", "v"));
    parts.angles += angle("S", clip("0s", "40s", "a"));
    parts.inClip = R"(<mc-source angleID="S"/>)";
    const LoadedProject project = loadProject(document(parts));
    EditSettings settings = startingSettings(project.imported, project.engine, {});
    settings.returnTimes["B"] = 600; // it has to come twice: nobody else has footage from 20 s on
    settings.mainMinimum = settings.mainMaximum = 8;
    const RuleTrial refused = tryRules(project.imported, project.engine, settings, {10, std::chrono::hours(1)});
    EXPECT_EQ(refused.refused, 10U);
    EXPECT_TRUE(refused.cameras.empty());
    EXPECT_TRUE(trialSummary(refused).starts_with("10 tries, all refused: Minimum return times prevent"));
    settings.audio = "A";
    const RuleTrial unchecked = tryRules(project.imported, project.engine, settings);
    EXPECT_EQ(unchecked.tries, 0U);
    EXPECT_TRUE(trialSummary(unchecked).starts_with("This audio angle does not cover the whole project."));
    settings.audio = "S";
    settings.returnTimes.clear();
    const RuleTrial timed = tryRules(project.imported, project.engine, settings, {1000, std::chrono::milliseconds(0)});
    EXPECT_EQ(timed.tries, 1U) << "one at least, however little time there is";
}

} // namespace
} // namespace corvane
