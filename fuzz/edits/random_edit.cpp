#include "fuzz/edits/random_edit.h"

#include "engine/cut_generation.h"
#include "export/rough_edit_writer.h"
#include "fuzz/edits/plain_coverage.h"
#include "fuzz/edits/random_document.h"
#include "fuzz/edits/written_edit.h"
#include "import/final_cut_import_error.h"
#include "import/project_loading.h"
#include "import/source_document.h"

#include <algorithm>

namespace corvane::test {

namespace {

std::string brokenCoverage(const CutEngine& engine)
{
    const auto holds = [](const std::vector<FrameRange>& ranges, Frames frame) {
        return std::ranges::any_of(ranges, [=](const FrameRange& range) { return range.holds(frame, frame + 1); });
    };
    for (const auto& [angle, stretches] : engine.coverage) {
        const auto painted = paintedAngle(engine.source->document, angle);
        const auto& audible = engine.audioRanges(angle);
        for (Frames frame = 0; frame < engine.length; ++frame) {
            const PaintedFrame found = {holds(stretches, frame), holds(audible, frame)};
            if (found != painted[static_cast<std::size_t>(frame)])
                return "frame " + std::to_string(frame) + " of angle " + angle + " is covered as its clips say";
        }
    }
    return "";
}

std::string brokenCounts(const LoadedProject& project)
{
    for (const ImportedAngle& angle : project.imported.angles) {
        if (angle.clipCount != countedClips(project.engine.source->document, angle.id))
            return "angle " + angle.id + " has as many clips as can be counted";
    }
    return "";
}

/// Of a document in which a compound clip is said to lead to itself, or to nothing.
std::string brokenRefusal(const std::string& source)
{
    const xml::Document document = xml::Document::parse(source);
    try {
        const xml::Element resources = *document.root()->firstChild("resources");
        for (const xml::Element angle : resources.firstChild("media")->firstChild("multicam")->children())
            (void)paintedAngle(document, *angle.attribute("angleID"));
    } catch (const Circle&) {
        return "";
    }
    return "what leads in a circle has a circle";
}

std::optional<ShotLengthRange> randomRange(ByteDraws& draws)
{
    if (draws.oneIn(3))
        return std::nullopt;
    const auto lower = static_cast<double>(draws.between(1, 5));
    return ShotLengthRange{lower, lower + static_cast<double>(draws.below(6))};
}

GenerationInputs randomInputs(ByteDraws& draws, const CutEngine& engine)
{
    std::vector<std::string> cameras;
    for (const auto& [angle, stretches] : engine.coverage) {
        if (!stretches.empty())
            cameras.push_back(angle);
    }
    if (cameras.empty())
        cameras.emplace_back("none");
    GenerationInputs inputs;
    inputs.mainShare = static_cast<double>(draws.between(10, 90)) / 100;
    inputs.averageShot = static_cast<double>(draws.between(4, 20));
    inputs.mainCamera = draws.anyOf(cameras);
    inputs.doubleMain = draws.oneIn(2);
    inputs.mainRange = randomRange(draws);
    inputs.otherRange = randomRange(draws);
    for (const std::string& camera : cameras) {
        if (camera != inputs.mainCamera)
            inputs.otherCameras.push_back(camera);
        if (draws.oneIn(3))
            inputs.frequencies[camera] = static_cast<double>(draws.between(1, 10));
        if (draws.oneIn(6))
            inputs.returnTimes[camera] = static_cast<double>(draws.below(20));
    }
    if (engine.length > 60 && draws.oneIn(4))
        inputs.opening = BookendShot{draws.anyOf(cameras), static_cast<double>(draws.between(1, 3))};
    if (engine.length > 60 && draws.oneIn(4))
        inputs.closing = BookendShot{draws.anyOf(cameras), static_cast<double>(draws.between(1, 3))};
    for (auto left = draws.oneIn(4) ? draws.between(1, 2) : 0; left > 0; --left) {
        const Frames start = draws.below(engine.length);
        const Frames end = start + draws.between(1, 30);
        inputs.fixedSections.push_back({draws.anyOf(cameras), start, end});
    }
    return inputs;
}

std::string brokenReimport(const CutEngine& engine, const std::string& written, const std::vector<Cut>& cuts)
{
    try {
        const CutEngine again = buildEngine(written);
        if (cuts.size() > 1)
            return "a cut project is refused";
        return again.coverage == engine.coverage && again.length == engine.length ? ""
                                                                                  : "an uncut project stays itself";
    } catch (const FinalCutImportError& refusal) {
        const bool named =
            std::string(refusal.what()) == "For this prototype, export a timeline containing one uncut multicam clip.";
        return cuts.size() > 1 && named ? "" : "a cut project alone is refused, by name";
    }
}

} // namespace

RandomEdit makeRandomEdit(ByteDraws& draws)
{
    const std::string source = randomDocument(draws);
    RandomEdit made;
    try {
        const LoadedProject project = loadProject(source);
        const CutEngine& engine = project.engine;
        made.broken = brokenCoverage(engine) + brokenCounts(project);
        if (!made.broken.empty())
            return made;
        const GenerationInputs inputs = randomInputs(draws, engine);
        std::vector<std::string> angles;
        for (const auto& [angle, stretches] : engine.audioCoverage) {
            if (!stretches.empty() || angles.empty())
                angles.push_back(angle);
        }
        const std::string audio = draws.anyOf(angles);
        GenerationSources sources;
        sources.randomNumbers = [&draws] { return draws.uniform(); };
        const std::vector<Cut> cuts = generateCuts(engine, inputs, sources);
        const std::string written = roughEditXML(engine, cuts, audio);
        made.clips = cuts.size();
        made.broken = brokenWrittenPromise(source, written, cuts, audio);
        if (made.broken.empty())
            made.broken = brokenReimport(engine, written, cuts);
    } catch (const FinalCutImportError& refusal) {
        made.refusal = refusal.what();
        if (made.refusal.ends_with("circular compound clip reference."))
            made.broken = brokenRefusal(source);
    }
    return made;
}

} // namespace corvane::test
