#include "base/numbers.h"
#include "engine/coverage_report.h"
#include "engine/cut_generation.h"
#include "engine/validation.h"
#include "import/final_cut_import_error.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <random>
#include <set>

namespace corvane {
namespace {

constexpr std::uint64_t seed = 7'340'033; // of the first case; each further case has the next
constexpr std::uint64_t caseCount = 60'000;

/// The distributions of the standard library differ from one library to the next; these give the same cases anywhere.
struct Chance {
    std::mt19937_64 bits;

    double uniform() { return static_cast<double>(bits() >> 11) * 0x1p-53; }
    double between(double from, double to) { return from + (to - from) * uniform(); }
    Frames below(Frames count) { return static_cast<Frames>(uniform() * static_cast<double>(count)); }
    bool oneIn(Frames count) { return below(count) == 0; }
    auto anyOf(const auto& list) { return list[static_cast<std::size_t>(below(std::ssize(list)))]; }
};

struct Case {
    CutEngine engine;
    GenerationInputs inputs;
    Frames freeStart = 0, freeEnd = 0;
};

/// True when one stretch of the camera's footage holds all of [start, end).
bool filmed(const CutEngine& engine, const std::string& camera, Frames start, Frames end)
{
    return std::ranges::any_of(engine.coverage.at(camera), [=](auto& each) { return each.holds(start, end); });
}

std::vector<FrameRange> footage(Chance& chance, bool whole, Frames length)
{
    std::vector<FrameRange> stretches;
    for (Frames start = chance.oneIn(2) ? 0 : chance.below(length / 4); start < length;) {
        stretches.push_back({start, std::min(length, start + 1 + chance.below(length / 2))});
        start = stretches.back().end + 1 + chance.below(length / 6);
    }
    return whole ? std::vector<FrameRange>{{0, length}} : stretches;
}

std::optional<ShotLengthRange> randomRange(Chance& chance)
{
    const double lower = chance.oneIn(3) ? chance.between(1, 9) : 1 + static_cast<double>(chance.below(8));
    const double width = chance.oneIn(16) ? 0 : chance.between(1, 16); // 0 may leave no whole frame
    return chance.oneIn(4) ? std::nullopt : std::optional(ShotLengthRange{lower, lower + width});
}

/// Everything by chance, within what validation accepts.
Case randomCase(Chance& chance)
{
    const std::array<std::array<std::int64_t, 2>, 4> rates = {{{1001, 24000}, {1, 25}, {1001, 30000}, {1, 60}}};
    const auto [numerator, denominator] = chance.anyOf(rates);
    const Frames length = (200 + chance.below(600)) * denominator / numerator;
    std::vector<std::string> cameras = {"A", "B", "C", "D", "E", "F"};
    cameras.resize(static_cast<std::size_t>(2 + chance.below(5)));
    Case made = {{}, {}, 0, length};
    auto& [engine, inputs, freeStart, freeEnd] = made;
    engine.frameNumerator = numerator;
    engine.frameDenominator = denominator;
    engine.length = length;
    engine.coverage["unused"] = {{0, length}};
    inputs.mainShare = chance.between(0.1, 0.9);
    inputs.averageShot = chance.between(4, 12);
    inputs.mainCamera = cameras[0];
    inputs.otherCameras.assign(cameras.begin() + 1, cameras.end());
    inputs.doubleMain = chance.oneIn(2);
    inputs.mainRange = randomRange(chance);
    inputs.otherRange = randomRange(chance);
    const bool allWhole = chance.oneIn(2);
    const std::string wholeCamera = chance.oneIn(6) ? "" : chance.anyOf(cameras);
    const Frames filmedLength = chance.oneIn(40) ? length - 1 - chance.below(length / 2) : length;
    const double longestWait = chance.oneIn(2) ? 40 : 0;
    for (const std::string& camera : cameras) {
        engine.coverage[camera] = footage(chance, allWhole || camera == wholeCamera, filmedLength);
        if (chance.oneIn(2))
            inputs.frequencies[camera] = chance.between(1, 10);
        if (chance.oneIn(2))
            inputs.returnTimes[camera] = chance.between(0, longestWait);
    }
    cameras.emplace_back("unused"); // bookends and sections may show what is not included
    for (const bool closes : {false, true}) {
        const BookendShot shot = {chance.anyOf(cameras), chance.between(1, 20)};
        const Frames frames = std::llround(engine.frames(shot.seconds));
        const Frames start = closes ? length - frames : 0;
        if (chance.oneIn(3) && filmed(engine, shot.angle, start, start + frames)) {
            (closes ? inputs.closing : inputs.opening) = shot;
            (closes ? freeEnd : freeStart) = closes ? start : frames;
        }
    }
    Frames position = freeStart;
    for (auto left = chance.oneIn(3) ? 0 : chance.below(5); left > 0; --left) {
        const Frames start = position + (chance.oneIn(3) ? 0 : chance.below(length / 4));
        const Frames end = std::min(freeEnd, start + 1 + chance.below(length / 12));
        const std::string camera = chance.anyOf(cameras);
        if (start < end && filmed(engine, camera, start, end)) {
            inputs.fixedSections.insert(inputs.fixedSections.begin(), {camera, start, end}); // the last first
            position = end;
        }
    }
    return made;
}

/// What the cut list breaks of all that is promised of it; empty when nothing.
std::string brokenPromise(const Case& given, const std::vector<Cut>& cuts)
{
    const auto& [engine, inputs, freeStart, freeEnd] = given;
    const auto sections = validateFixedSections(engine, inputs.fixedSections, freeStart, freeEnd);
    if (!std::ranges::is_sorted(sections, {}, &FixedCameraSection::start) ||
        validateFixedSections(engine, sections, freeStart, freeEnd) != sections)
        return "sections once in order stay so";
    auto section = sections.begin();
    std::map<std::string_view, Frames> lastEnds;
    std::set<Identifier> ids;
    Frames position = 0;
    std::string_view before; // the camera of the cut before this
    bool placedBefore = false;
    for (const Cut& cut : cuts) {
        const Frames end = cut.start + cut.duration;
        const bool opening = inputs.opening && position == 0;
        const bool closing = inputs.closing && end == engine.length;
        const bool fixedHere = section != sections.end() && section->start == cut.start;
        const bool free = !opening && !closing && !fixedHere;
        const auto hasWaited = [&](const std::string& camera) {
            const auto wait = inputs.returnTimes.find(camera);
            const auto last = lastEnds.find(camera);
            return wait == inputs.returnTimes.end() || last == lastEnds.end() ||
                   static_cast<double>(cut.start - last->second) >= engine.frames(wait->second);
        };
        const std::string& main = inputs.mainCamera;
        const bool mainIsDue = before != main && hasWaited(main) && filmed(engine, main, cut.start, cut.start + 1);
        const std::pair<bool, const char*> promises[] = {
            {cut.start == position && cut.duration >= 1, "the cuts follow each other from 0"},
            {filmed(engine, cut.angle, cut.start, end), "a cut lies in one stretch of its camera's footage"},
            {ids.insert(cut.id).second, "every cut has its own id"},
            {!opening || (cut.angle == inputs.opening->angle && end == freeStart), "the opening is exact"},
            {!closing || (cut.angle == inputs.closing->angle && cut.start == freeEnd), "the closing is exact"},
            {!fixedHere || (cut.angle == section->angle && end == section->end), "a fixed section is one exact cut"},
            {!free || cut.angle != "unused", "only included cameras are free"},
            {!free || cut.angle != before || placedBefore, "shots of one camera that touch are one cut"},
            {!free || cut.angle == before || hasWaited(cut.angle), "no camera returns before its time"},
            {!free || cut.angle == main || !mainIsDue, "after another camera comes the main camera"}};
        for (const auto& [kept, promise] : promises) {
            if (!kept)
                return promise;
        }
        section += fixedHere ? 1 : 0;
        placedBefore = !free;
        before = cut.angle;
        lastEnds[cut.angle] = position = end;
    }
    return position == engine.length && section == sections.end() ? "" : "the whole project is cut";
}

TEST(GenerationLaws, EveryCutListOfManyRandomEditsKeepsEveryPromise)
{
    std::uint64_t longLists = 0;
    std::uint64_t refused = 0;
    for (std::uint64_t number = 0; number < caseCount; ++number) {
        Chance chance{std::mt19937_64(seed + number)};
        const Case given = randomCase(chance);
        const auto& [engine, inputs, freeStart, freeEnd] = given;
        const bool withOnes = chance.oneIn(10); // no true draw is 1; it takes the last candidate
        GenerationSources sources;
        sources.randomNumbers = [&] { return withOnes && chance.oneIn(8) ? 1.0 : chance.uniform(); };
        auto cameras = inputs.otherCameras;
        cameras.push_back(inputs.mainCamera);
        const auto report =
            uncoveredVideoSections(engine, cameras, inputs.opening, inputs.closing, inputs.fixedSections);
        const auto gaps = uncoveredStretches(report.covered, engine.length);
        std::string broken;
        try {
            const auto cuts = generateCuts(engine, inputs, sources);
            broken = gaps.empty() ? brokenPromise(given, cuts) : "what is cut is covered";
            longLists += cuts.size() >= 20 ? 1U : 0U;
        } catch (const FinalCutImportError& refusal) {
            const std::string gap = gaps.empty() ? "none" : fixed(engine.seconds(gaps[0].start), 2);
            const std::string gapRefusal =
                "No selected camera has video at " + gap + " seconds. The uncovered section ";
            const std::string words = refusal.what();
            if (!words.starts_with(gapRefusal) && words != "The shot range must contain at least one full frame." &&
                !words.starts_with("Minimum return times prevent a camera change at 00:"))
                broken = words;
            ++refused;
        }
        ASSERT_EQ(broken, "") << "seed " << seed << ", case " << number;
    }
    std::cout << caseCount << " cases from seed " << seed << ": " << longLists << " with 20 cuts or more, " << refused
              << " refused\n";
    EXPECT_GE(longLists, caseCount * 6 / 10);
}

} // namespace
} // namespace corvane
