#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "export/settings_record.h"
#include "import/final_cut_import_error.h"
#include "session/starting_settings.h"
#include "support/documents.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>

namespace corvane {
namespace {

using namespace test;

TEST(Locale, NeverReachesANumber)
{
    const std::string source =
        document({.angles = angle("A", clip("0.04s", "39.5s")) + angle("B", clip("0.04s", "39.5s"))});
    const auto everyText = [&] {
        const auto [project, engine] = loadProject(source);
        EditSettings settings = startingSettings(project, engine);
        std::string text = setupWarning(project, engine, settings).value();
        GenerationInputs inputs = generationInputs(project, engine, settings);
        try {
            (void)generateCuts(engine, inputs);
        } catch (const FinalCutImportError& refusal) {
            text += refusal.what();
        }
        return text + settingsRecordText(project, engine, {{}, {}, settings, {{{}, "A", 0, 33}}});
    };
    const std::string before = everyText();
    EXPECT_NE(before.find("0.04 seconds"), std::string::npos) << before;
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "run ./test.sh once: it generates the locale";
    char comma[8];
    ASSERT_EQ(std::snprintf(comma, sizeof comma, "%.1f", 0.5), 3);
    EXPECT_STREQ(comma, "0,5") << "the locale took";
    EXPECT_EQ(everyText(), before);
    EXPECT_NE(std::setlocale(LC_ALL, "C"), nullptr);
}

} // namespace
} // namespace corvane
