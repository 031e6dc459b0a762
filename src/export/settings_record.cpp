#include "export/settings_record.h"

#include "base/numbers.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "timecode/timecode.h"

namespace corvane {

namespace {

/// Collects the lines of one record.
class Record {
public:
    Record(const ImportedProject& project, const CutEngine& engine, const EditRevision& revision)
        : project_(project), engine_(engine), revision_(revision), settings_(revision.settings)
    {
    }

    std::string head()
    {
        addProject();
        addSettings();
        addCameras();
        addFixedShots();
        return std::move(text_);
    }

    std::string text()
    {
        text_ = head();
        addUsage();
        addCuts();
        return std::move(text_);
    }

private:
    void line(const std::string& text = "") { text_ += text + "\n"; }

    /// The name of the first angle with this id, or the id itself.
    [[nodiscard]] std::string name(const std::string& id) const
    {
        const ImportedAngle* angle = angleWithID(project_.angles, id);
        return angle == nullptr ? id : angle->name;
    }

    void addProject()
    {
        line("Corvane export settings");
        line("Project: " + project_.name);
        line("Edit ID: " + revision_.id.text());
        line("Generated: " + revision_.created.isoText());
        line(
            "Frame duration: " + std::to_string(engine_.frameNumerator) + "/" +
            std::to_string(engine_.frameDenominator) + " seconds");
        line("Project start: " + timecodeLabel(engine_, 0));
        line("Project duration: " + decimal(engine_.seconds(engine_.length)) + " seconds");
    }

    void addSettings()
    {
        const auto range = [](double lower, double upper) {
            return decimal(lower) + " to " + decimal(upper) + " seconds";
        };
        line("Main camera: " + name(settings_.mainCamera));
        line("Target main screen time: " + decimal(settings_.mainShare) + "%");
        line("Main shot range: " + range(settings_.mainMinimum, settings_.mainMaximum));
        line("Other shot range: " + range(settings_.otherMinimum, settings_.otherMaximum));
        line(std::string("Randomly double main holds: ") + (settings_.doubleMain ? "On (25% chance)" : "Off"));
        line("Continuous audio: " + name(settings_.audio));
        line();
    }

    void addCameras()
    {
        // A camera without a frequency is recorded with 0 (see frequencyOf), because the record's form is fixed.
        const auto valueFor = [](const auto& values, const std::string& camera) {
            const auto found = values.find(camera);
            return decimal(found == values.end() ? 0 : found->second);
        };
        line("Camera settings:");
        for (const ImportedAngle& angle : videoAngles(project_, engine_)) {
            const char* role = angle.id == settings_.mainCamera            ? "main"
                               : settings_.otherCameras.contains(angle.id) ? "included"
                                                                           : "excluded from random cuts";
            line(
                angle.name + ": " + role + ", frequency " + valueFor(settings_.frequencies, angle.id) +
                ", minimum return " + valueFor(settings_.returnTimes, angle.id) + " seconds after previous hold ends");
        }
        line();
    }

    void addFixedShots()
    {
        const auto bookend = [this](bool enabled, const std::string& camera, double seconds) {
            return enabled ? name(camera) + ", " + decimal(seconds) + " seconds" : "Off";
        };
        line("Opening: " + bookend(settings_.openingEnabled, settings_.openingCamera, settings_.openingSeconds));
        line("Closing: " + bookend(settings_.closingEnabled, settings_.closingCamera, settings_.closingSeconds));
        line("Fixed shots override minimum return times.");
        line();
        line("Fixed sections:");
        if (settings_.sections.empty())
            line("None");
        for (const SectionDraft& section : settings_.sections)
            line(section.name + ": " + section.start + " to " + section.end + ", " + name(section.camera));
        line();
    }

    void addUsage()
    {
        line("Actual camera usage:");
        for (const CameraShare& share : cameraShares(project_, engine_, revision_.cuts)) {
            line(
                share.angle.name + ": " + fixed(engine_.seconds(share.frames), 2) + " seconds, " +
                fixed(share.percent, 1) + "%, " + std::to_string(share.shots) + " shots");
        }
        line();
    }

    void addCuts()
    {
        line("Cut list (start timecode | camera | duration in seconds):");
        for (const Cut& cut : revision_.cuts)
            line(
                timecodeLabel(engine_, cut.start) + " | " + name(cut.angle) + " | " +
                decimal(engine_.seconds(cut.duration)));
    }

    const ImportedProject& project_;
    const CutEngine& engine_;
    const EditRevision& revision_;
    const EditSettings& settings_;
    std::string text_;
};

} // namespace

std::string settingsRecordText(const ImportedProject& project, const CutEngine& engine, const EditRevision& revision)
{
    return Record(project, engine, revision).text();
}

std::string settingsHeadText(const ImportedProject& project, const CutEngine& engine, const EditRevision& revision)
{
    return Record(project, engine, revision).head();
}

} // namespace corvane
