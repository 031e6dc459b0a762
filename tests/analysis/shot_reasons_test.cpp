#include "analysis/shot_reasons.h"
#include "engine/cut_generation.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iostream>
#include <map>
#include <random>
#include <set>

namespace corvane {
namespace {

constexpr std::uint64_t firstEdit = 20'261'126;
constexpr int editCount = 10'000;

using Names = std::set<std::string>;

struct RandomEdit {
    std::mt19937_64 bits;
    ImportedProject project;
    CutEngine engine;
    EditSettings settings;

    std::int64_t below(std::int64_t count)
    {
        return static_cast<std::int64_t>(bits() % static_cast<std::uint64_t>(count));
    }
    double between(int from, int to) { return static_cast<double>(from + below(to - from + 1)); }
    std::string camera() { return project.angles[static_cast<std::size_t>(below(std::ssize(project.angles)))].id; }

    explicit RandomEdit(std::uint64_t number) : bits(number)
    {
        engine.length = 500 + below(3000);
        engine.timelineStart = below(100'000);
        for (std::int64_t count = 2 + below(5); count > 0; --count) {
            const std::string id = "<" + std::to_string(count) + ">";
            project.angles.push_back({id, id, "", 1, 0, {}});
            auto& footage = engine.coverage[id];
            for (Frames start = below(3) == 0 ? below(400) : 0; start < engine.length;) {
                footage.push_back(
                    {start, below(3) > 0 ? engine.length : std::min(engine.length, start + 1 + below(1500))});
                start = footage.back().end + 1 + below(200);
            }
            settings.otherCameras.insert(id);
            settings.frequencies[id] = between(1, 10);
            settings.returnTimes[id] = below(2) == 0 ? 0 : between(0, 60);
        }
        settings.mainCamera = camera();
        settings.otherCameras.erase(below(4) == 0 ? camera() : settings.mainCamera);
        settings.mainShare = between(10, 90);
        settings.mainMinimum = between(1, 10);
        settings.mainMaximum = settings.mainMinimum + between(0, 10);
        settings.otherMinimum = between(1, 6);
        settings.otherMaximum = settings.otherMinimum + between(0, 6);
        settings.doubleMain = below(2) == 0;
        settings.openingEnabled = below(4) == 0;
        settings.closingEnabled = below(4) == 0;
        settings.openingCamera = camera();
        settings.closingCamera = camera();
        settings.openingSeconds = settings.closingSeconds = between(1, 5);
        if (below(3) == 0) {
            const Frames start = 125 + below(200);
            const auto label = [&](Frames frame) { return timecodeLabel(engine, frame); };
            settings.sections = {{{}, "Reading", camera(), label(start), label(start + 1 + below(100))}};
        }
    }
};

/// A generation whose draws are noted, with how many there were when each cut was made.
struct NotedEdit {
    std::vector<double> draws;
    std::vector<std::size_t> counts;
    std::vector<Cut> cuts;
};

NotedEdit drawn(const RandomEdit& edit, const std::function<double(std::size_t)>& draw)
{
    NotedEdit noted;
    GenerationSources sources;
    sources.randomNumbers = [&] { return noted.draws.emplace_back(draw(noted.draws.size())); };
    sources.identifiers = [&] { return noted.counts.push_back(noted.draws.size()), Identifier(); };
    noted.cuts = generateCuts(edit.engine, generationInputs(edit.project, edit.engine, edit.settings), sources);
    return noted;
}

/// The cameras that stand at a frame when the number that chose there is varied: the project ends after it.
Names possible(RandomEdit edit, const NotedEdit& noted, std::size_t position)
{
    edit.engine.length = noted.cuts[position].start + 1;
    edit.settings.closingEnabled = false;
    if (!edit.settings.sections.empty() &&
        parseTimecode(edit.engine, edit.settings.sections[0].end) > edit.engine.length)
        edit.settings.sections.clear();
    Names names;
    // A shot draws its camera, the nominal length, the length in the range and the doubling.
    const bool isMain = noted.cuts[position].angle == edit.settings.mainCamera;
    const std::size_t choice = noted.counts[position] - (isMain && edit.settings.doubleMain ? 4 : 3);
    constexpr int steps = 64; // the weights are whole numbers, 50 in all at most
    for (int step = 0; step < steps; ++step) {
        const auto again = drawn(
            edit, [&](std::size_t number) { return number == choice ? step / double{steps} : noted.draws[number]; });
        names.insert(again.cuts.back().angle);
    }
    return names;
}

Names namedIn(const RandomEdit& edit, const std::string& text)
{
    Names names;
    for (const ImportedAngle& angle : edit.project.angles) {
        if (text.find(angle.id) != std::string::npos)
            names.insert(angle.id);
    }
    return text.find("main camera.") == std::string::npos ? names : Names{edit.settings.mainCamera};
}

/// What the sentence says of cameras that could not be drawn.
void holdAside(const RandomEdit& edit, const NotedEdit& noted, std::size_t position, const std::string& aside)
{
    const Frames start = noted.cuts[position].start;
    for (const std::string& waiting : namedIn(edit, aside)) {
        Frames back = static_cast<Frames>(std::ceil(edit.engine.frames(edit.settings.returnTimes.at(waiting))));
        for (std::size_t i = position; i-- > 0;) {
            if (noted.cuts[i].angle == waiting) {
                back += noted.cuts[i].start + noted.cuts[i].duration;
                break;
            }
        }
        EXPECT_GT(back, start);
        EXPECT_TRUE(hasFootage(edit.engine, waiting, start, start + 1));
        EXPECT_NE(aside.find(waiting + " waits until " + timecodeLabel(edit.engine, back)), std::string::npos) << aside;
    }
    EXPECT_EQ(
        aside.find("the main camera has no footage") != std::string::npos,
        !aside.empty() && !hasFootage(edit.engine, edit.settings.mainCamera, start, start + 1));
}

TEST(ShotReasons, NameExactlyTheCamerasThatCouldComeOut)
{
    int explained = 0;
    std::map<ShotReasons::Choice::Kind, int> kinds;
    for (std::uint64_t number = 0; explained < editCount; ++number) {
        RandomEdit edit(firstEdit + number);
        NotedEdit noted;
        try {
            noted = drawn(edit, [&](std::size_t) { return static_cast<double>(edit.bits() >> 11) * 0x1p-53; });
        } catch (const FinalCutImportError&) {
            continue;
        }
        const ShotReasons reasons(edit.project, edit.engine, edit.settings, noted.cuts);
        const auto position = static_cast<std::size_t>(edit.below(std::ssize(noted.cuts)));
        const std::string sentence = reasons.begins(position);
        SCOPED_TRACE(
            "seed " + std::to_string(firstEdit + number) + ", cut " + std::to_string(position) + ": " + sentence);
        ++explained;
        ++kinds[reasons.choice(position).kind];
        ASSERT_NE(reasons.ends(position), "");
        if (!reasons.choice(position).cameras.empty()) {
            const std::size_t aside = std::min(sentence.find(';'), sentence.size());
            ASSERT_EQ(namedIn(edit, sentence.substr(0, aside)), possible(edit, noted, position));
            holdAside(edit, noted, position, sentence.substr(aside));
        } else {
            ASSERT_TRUE(
                sentence == "Opening shot." || sentence == "Closing shot." || sentence == "Fixed section Reading.");
        }
        ASSERT_FALSE(HasFailure());
    }
    std::cout << explained << " shots explained from seed " << firstEdit << "\n";
    EXPECT_EQ(kinds.size(), 7U) << "every kind of reason but none";
}

TEST(ShotReasons, SayNothingOfCutsThatTheSettingsCannotDraw)
{
    RandomEdit edit(firstEdit);
    const std::vector<Cut> strange = {{{}, "unknown", 0, edit.engine.length}};
    edit.settings.openingEnabled = false;
    edit.settings.closingEnabled = false;
    edit.settings.sections.clear();
    EXPECT_EQ(ShotReasons(edit.project, edit.engine, edit.settings, strange).begins(0), "");
    edit.settings.sections = {{{}, "", "<1>", "not a timecode", ""}};
    const ShotReasons unread(edit.project, edit.engine, edit.settings, strange);
    EXPECT_EQ(unread.begins(0), "");
    EXPECT_EQ(unread.ends(0), "Ends with the project.");
}

} // namespace
} // namespace corvane
