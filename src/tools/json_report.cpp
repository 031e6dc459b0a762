#include "tools/json_report.h"

#include "analysis/rule_trial.h"
#include "analysis/shot_reasons.h"
#include "base/json_writing.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "export/carry_over.h"
#include "timecode/timecode.h"

namespace corvane {

namespace {

class ReportWriter {
public:
    explicit ReportWriter(const ProjectFacts& facts) : facts_(facts) {}

    [[nodiscard]] std::string report()
    {
        json_.object([this] {
            json_.member("form", reportForm);
            json_.member("path", facts_.path);
            json_.key("refusal");
            if (facts_.refusal)
                json_.value(*facts_.refusal);
            else
                json_.null();
            if (facts_.file != nullptr)
                addFile(*facts_.file);
            if (facts_.files) {
                json_.key("files");
                json_.object([this] {
                    json_.member("project", facts_.files->xmlURL);
                    json_.member("record", facts_.files->settingsURL);
                });
            }
        });
        return json_.take();
    }

private:
    void addFile(const LoadedFile& file)
    {
        addProject(file);
        addAngles(file);
        if (facts_.check != nullptr) {
            if (facts_.check->usable)
                addUsable(file, *facts_.check->usable);
            json_.member("exportRefuses", facts_.check->refusals);
            json_.member("advice", facts_.check->advice);
            json_.member("odd", facts_.check->oddities);
        }
        if (facts_.cuts != nullptr)
            addEdit(file, *facts_.cuts);
    }

    void addProject(const LoadedFile& file)
    {
        const CutEngine& engine = file.engine;
        json_.key("project");
        json_.object([&] {
            json_.member("name", file.project.name);
            json_.member("fcpxmlVersion", file.project.version);
            json_.key("frameDuration");
            json_.object([&] {
                json_.member("numerator", engine.frameNumerator);
                json_.member("denominator", engine.frameDenominator);
            });
            json_.member("dropFrame", engine.dropFrame);
            json_.member("frames", engine.length);
            addTime("start", engine, 0);
            addTime("end", engine, engine.length);
        });
    }

    void addAngles(const LoadedFile& file)
    {
        json_.key("angles");
        json_.list([&] {
            for (const ImportedAngle& angle : file.project.angles) {
                json_.object([&] {
                    json_.member("id", angle.id);
                    json_.member("name", angle.name);
                    json_.member("cameras", angle.cameras);
                    addRanges("video", file.engine, file.engine.videoRanges(angle.id));
                    addRanges("audio", file.engine, file.engine.audioRanges(angle.id));
                });
            }
        });
    }

    void addUsable(const LoadedFile& file, const UsableRanges& usable)
    {
        json_.key("usable");
        json_.object([&] {
            json_.member("wholeProject", usable.wholeProject);
            json_.member("frames", usable.frames);
            json_.member("audioAngle", file.settings.audio);
            addRanges("ranges", file.engine, usable.offered);
        });
    }

    void addEdit(const LoadedFile& file, const std::vector<Cut>& cuts)
    {
        addUsage(file, cuts);
        addCuts(file, cuts);
        const CarryOver left = carryOver(file.engine);
        json_.key("notCarriedOver");
        json_.object([&] {
            json_.member("elements", left.leftOut);
            json_.member("tracking", left.lostTracking);
        });
    }

    void addUsage(const LoadedFile& file, const std::vector<Cut>& cuts)
    {
        const auto targets = targetShares(file.project, file.engine, file.settings);
        json_.key("usage");
        json_.list([&] {
            for (const CameraShare& used : cameraShares(file.project, file.engine, cuts)) {
                const auto target = targets.find(used.angle.id);
                json_.object([&] {
                    json_.member("angle", used.angle.id);
                    json_.member("frames", used.frames);
                    json_.member("shots", used.shots);
                    json_.member("sharePercent", used.percent);
                    json_.key("targetPercent");
                    if (target == targets.end())
                        json_.null();
                    else
                        json_.value(target->second);
                });
            }
        });
    }

    void addCuts(const LoadedFile& file, const std::vector<Cut>& cuts)
    {
        const ShotReasons reasons(file.project, file.engine, file.settings, cuts);
        json_.key("cuts");
        json_.list([&] {
            for (std::size_t position = 0; position < cuts.size(); ++position) {
                const Cut& cut = cuts[position];
                json_.object([&] {
                    json_.member("angle", cut.angle);
                    addTime("start", file.engine, cut.start);
                    addTime("end", file.engine, cut.start + cut.duration);
                    json_.member("frames", cut.duration);
                    json_.member("begins", reasons.begins(position));
                    json_.member("ends", reasons.ends(position));
                });
            }
        });
    }

    void addRanges(std::string_view name, const CutEngine& engine, const std::vector<FrameRange>& ranges)
    {
        json_.key(name);
        json_.list([&] {
            for (const FrameRange& range : ranges) {
                json_.object([&] {
                    addTime("start", engine, range.start);
                    addTime("end", engine, range.end);
                });
            }
        });
    }

    void addTime(std::string_view name, const CutEngine& engine, Frames frame)
    {
        json_.key(name);
        json_.object([&] {
            json_.member("frame", frame);
            json_.member("timecode", timecodeLabel(engine, frame));
        });
    }

    const ProjectFacts& facts_;
    JsonWriter json_;
};

} // namespace

std::string jsonReport(const ProjectFacts& facts)
{
    return ReportWriter(facts).report();
}

} // namespace corvane
