#include "tools/json_report.h"

#include "analysis/rule_trial.h"
#include "analysis/shot_reasons.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "export/carry_over.h"
#include "timecode/timecode.h"

#include <nlohmann/json.hpp>

namespace corvane {

namespace {

using Json = nlohmann::ordered_json;

Json time(const CutEngine& engine, Frames frame)
{
    return {{"frame", frame}, {"timecode", timecodeLabel(engine, frame)}};
}

Json ranges(const CutEngine& engine, const std::vector<FrameRange>& ranges)
{
    Json list = Json::array();
    for (const FrameRange& range : ranges)
        list.push_back({{"start", time(engine, range.start)}, {"end", time(engine, range.end)}});
    return list;
}

double sharePercent(const CutEngine& engine, Frames frames)
{
    return static_cast<double>(frames) / static_cast<double>(engine.length) * 100;
}

Json projectFacts(const LoadedFile& file)
{
    const CutEngine& engine = file.engine;
    return {
        {"name", file.project.name},
        {"fcpxmlVersion", file.project.version},
        {"frameDuration", {{"numerator", engine.frameNumerator}, {"denominator", engine.frameDenominator}}},
        {"dropFrame", engine.dropFrame},
        {"frames", engine.length},
        {"start", time(engine, 0)},
        {"end", time(engine, engine.length)}};
}

Json angleFacts(const LoadedFile& file)
{
    Json angles = Json::array();
    for (const ImportedAngle& angle : file.project.angles)
        angles.push_back(
            {{"id", angle.id},
             {"name", angle.name},
             {"cameras", angle.cameras},
             {"video", ranges(file.engine, file.engine.videoRanges(angle.id))},
             {"audio", ranges(file.engine, file.engine.audioRanges(angle.id))}});
    return angles;
}

Json usableFacts(const LoadedFile& file, const UsableRanges& usable)
{
    return {
        {"wholeProject", usable.wholeProject},
        {"frames", usable.frames},
        {"audioAngle", file.settings.audio},
        {"ranges", ranges(file.engine, usable.offered)}};
}

Json usageFacts(const LoadedFile& file, const std::vector<Cut>& cuts)
{
    const UsageByCamera usage = cameraUsage(cuts);
    const auto targets = targetShares(file.project, file.engine, file.settings);
    Json list = Json::array();
    for (const ImportedAngle& angle : videoAngles(file.project, file.engine)) {
        const auto found = usage.find(angle.id);
        const CameraUsage used = found == usage.end() ? CameraUsage{} : found->second;
        const auto target = targets.find(angle.id);
        list.push_back(
            {{"angle", angle.id},
             {"frames", used.frames},
             {"shots", used.shots},
             {"sharePercent", sharePercent(file.engine, used.frames)},
             {"targetPercent", target == targets.end() ? Json() : Json(target->second)}});
    }
    return list;
}

Json cutFacts(const LoadedFile& file, const std::vector<Cut>& cuts)
{
    const ShotReasons reasons(file.project, file.engine, file.settings, cuts);
    Json list = Json::array();
    for (std::size_t position = 0; position < cuts.size(); ++position) {
        const Cut& cut = cuts[position];
        list.push_back(
            {{"angle", cut.angle},
             {"start", time(file.engine, cut.start)},
             {"end", time(file.engine, cut.start + cut.duration)},
             {"frames", cut.duration},
             {"begins", reasons.begins(position)},
             {"ends", reasons.ends(position)}});
    }
    return list;
}

void addEdit(Json& report, const LoadedFile& file, const std::vector<Cut>& cuts)
{
    const CarryOver left = carryOver(file.engine);
    report["usage"] = usageFacts(file, cuts);
    report["cuts"] = cutFacts(file, cuts);
    report["notCarriedOver"] = {{"elements", left.leftOut}, {"tracking", left.lostTracking}};
}

void addFile(Json& report, const LoadedFile& file, const ProjectFacts& facts)
{
    report["project"] = projectFacts(file);
    report["angles"] = angleFacts(file);
    if (facts.check != nullptr) {
        if (facts.check->usable)
            report["usable"] = usableFacts(file, *facts.check->usable);
        report["exportRefuses"] = facts.check->refusals;
        report["advice"] = facts.check->advice;
        report["odd"] = facts.check->oddities;
    }
    if (facts.cuts != nullptr)
        addEdit(report, file, *facts.cuts);
}

} // namespace

std::string jsonReport(const ProjectFacts& facts)
{
    Json report = {{"form", reportForm}, {"path", facts.path}};
    report["refusal"] = facts.refusal ? Json(*facts.refusal) : Json();
    if (facts.file != nullptr)
        addFile(report, *facts.file, facts);
    if (facts.files)
        report["files"] = {{"project", facts.files->xmlURL}, {"record", facts.files->settingsURL}};
    return report.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace corvane
