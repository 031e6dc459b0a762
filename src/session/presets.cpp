#include "session/presets.h"

#include "base/text.h"
#include "engine/generation_inputs.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <string_view>

namespace corvane {

namespace {

/// Finds angles by name. A name matches only if exactly one angle has it.
class AngleNames {
public:
    explicit AngleNames(std::vector<ImportedAngle> angles) : angles_(std::move(angles))
    {
        for (const ImportedAngle& angle : angles_)
            byName_[comparableName(angle.name)].push_back(&angle);
    }

    [[nodiscard]] const ImportedAngle* identified(std::string_view name) const
    {
        const auto found = byName_.find(comparableName(name));
        return found == byName_.end() || found->second.size() != 1 ? nullptr : found->second.front();
    }

    /// For each angle id, the value of the row with the angle's name, or `otherwise` if the name is not unique on both
    /// sides.
    template <class Row>
    [[nodiscard]] std::map<std::string, double, std::less<>> values(
        const std::optional<std::vector<Row>>& rows, double Row::* member, double otherwise) const
    {
        std::map<std::string, std::vector<double>> rowsByName;
        for (const Row& row : rows ? *rows : std::vector<Row>())
            rowsByName[comparableName(row.angleName)].push_back(row.*member);
        std::map<std::string, double, std::less<>> found;
        for (const auto& [name, angles] : byName_) {
            const auto named = rowsByName.find(name);
            const bool unique = angles.size() == 1 && named != rowsByName.end() && named->second.size() == 1;
            for (const ImportedAngle* angle : angles)
                found[angle->id] = unique ? named->second.front() : otherwise;
        }
        return found;
    }

private:
    std::vector<ImportedAngle> angles_;
    std::map<std::string, std::vector<const ImportedAngle*>> byName_; ///< by their comparable names
};

std::vector<ImportedAngle> audioAngles(const ImportedProject& project, const CutEngine& engine)
{
    std::vector<ImportedAngle> angles;
    std::ranges::copy_if(project.angles, std::back_inserter(angles), [&](const ImportedAngle& angle) {
        return !engine.audioRanges(angle.id).empty();
    });
    return angles;
}

std::string nameOf(const std::vector<ImportedAngle>& angles, std::string_view id)
{
    const ImportedAngle* angle = angleWithID(angles, id);
    return angle == nullptr ? "" : angle->name;
}

struct CameraChoice {
    std::string main;
    std::set<std::string> others;
    std::string audio;
};

/// None unless every name in the preset matches a different angle.
std::optional<CameraChoice> matchCameras(const EditPreset& preset, const AngleNames& video, const AngleNames& audio)
{
    const ImportedAngle* main = video.identified(preset.mainAngleName);
    const ImportedAngle* sound = audio.identified(preset.audioAngleName);
    if (main == nullptr || sound == nullptr || preset.otherAngleNames.empty())
        return std::nullopt;
    CameraChoice choice = {main->id, {}, sound->id};
    for (const std::string& name : preset.otherAngleNames) {
        const ImportedAngle* other = video.identified(name);
        if (other == nullptr || other == main || !choice.others.insert(other->id).second)
            return std::nullopt;
    }
    return choice;
}

void applyRanges(const EditPreset& preset, EditSettings& settings)
{
    const DerivedRanges derived = derivedRanges(preset.mainShare, preset.averageShot);
    settings.mainMinimum = preset.mainMinimum.value_or(derived.mainMinimum);
    settings.mainMaximum = preset.mainMaximum.value_or(derived.mainMaximum);
    settings.otherMinimum = preset.otherMinimum.value_or(derived.otherMinimum);
    settings.otherMaximum = preset.otherMaximum.value_or(derived.otherMaximum);
}

/// False if the preset has a bookend whose camera is not found.
bool applyBookend(
    const std::optional<PresetBookend>& bookend, const AngleNames& video, bool& enabled, std::string& camera,
    double& seconds)
{
    const ImportedAngle* angle = bookend ? video.identified(bookend->angleName) : nullptr;
    enabled = angle != nullptr;
    if (enabled) {
        camera = angle->id;
        seconds = bookend->seconds;
    }
    return enabled || !bookend;
}

} // namespace

std::string comparableName(std::string_view name)
{
    return lowerCased(trimmed(name));
}

bool sameName(std::string_view a, std::string_view b)
{
    return comparableName(a) == comparableName(b);
}

void sortPresets(std::vector<EditPreset>& presets)
{
    const NameOrder order;
    std::ranges::stable_sort(
        presets, [&order](const EditPreset& a, const EditPreset& b) { return order(a.name, b.name) < 0; });
}

EditPreset makePreset(
    const Identifier& id, const std::string& name, const ImportedProject& project, const CutEngine& engine,
    const EditSettings& settings)
{
    const auto video = videoAngles(project, engine);
    EditPreset preset;
    preset.id = id;
    preset.name = name;
    preset.mainShare = settings.mainShare;
    preset.averageShot = settings.averageShot;
    preset.doubleMain = settings.doubleMain;
    preset.mainAngleName = nameOf(video, settings.mainCamera);
    for (const std::string& camera : includedOtherCameras(project, engine, settings))
        preset.otherAngleNames.push_back(nameOf(video, camera));
    preset.audioAngleName = nameOf(audioAngles(project, engine), settings.audio);
    preset.returnTimes.emplace();
    preset.frequencies.emplace();
    for (const ImportedAngle& angle : video) {
        const auto returnTime = settings.returnTimes.find(angle.id);
        if (returnTime != settings.returnTimes.end())
            preset.returnTimes->push_back({angle.name, returnTime->second});
        preset.frequencies->push_back({angle.name, frequencyOf(settings.frequencies, angle.id)});
    }
    if (settings.openingEnabled)
        preset.opening = {nameOf(video, settings.openingCamera), settings.openingSeconds};
    if (settings.closingEnabled)
        preset.closing = {nameOf(video, settings.closingCamera), settings.closingSeconds};
    preset.mainMinimum = settings.mainMinimum;
    preset.mainMaximum = settings.mainMaximum;
    preset.otherMinimum = settings.otherMinimum;
    preset.otherMaximum = settings.otherMaximum;
    return preset;
}

AppliedPreset appliedPreset(
    const EditPreset& preset, const ImportedProject& project, const CutEngine& engine, const EditSettings& current)
{
    const AngleNames video(videoAngles(project, engine));
    const AngleNames audio(audioAngles(project, engine));
    AppliedPreset applied = {current, "Applied " + preset.name};
    EditSettings& settings = applied.settings;
    settings.mainShare = preset.mainShare;
    settings.averageShot = preset.averageShot;
    applyRanges(preset, settings);
    settings.doubleMain = preset.doubleMain;
    settings.frequencies = video.values(preset.frequencies, &PresetFrequency::weight, usualFrequency);
    settings.returnTimes = video.values(preset.returnTimes, &PresetReturnTime::seconds, 0);
    if (const auto choice = matchCameras(preset, video, audio)) {
        settings.mainCamera = choice->main;
        settings.otherCameras = choice->others;
        settings.audio = choice->audio;
        applied.tookCameras = true;
        applied.notice += ", including matching camera and audio angles.";
    } else {
        applied.notice += "'s pacing and balance. Some angle names are missing or repeated, so the current camera and "
                          "audio selections were kept.";
    }
    const bool opening =
        applyBookend(preset.opening, video, settings.openingEnabled, settings.openingCamera, settings.openingSeconds);
    const bool closing =
        applyBookend(preset.closing, video, settings.closingEnabled, settings.closingCamera, settings.closingSeconds);
    if (!opening || !closing)
        applied.notice += " An opening or closing camera could not be matched, so that option was turned off.";
    return applied;
}

std::vector<std::string> camerasNotIdentified(
    const EditPreset& preset, const ImportedProject& project, const CutEngine& engine)
{
    const AngleNames video(videoAngles(project, engine));
    const AngleNames audio(audioAngles(project, engine));
    std::vector<std::string> missing;
    std::set<std::string_view> looked;
    const auto look = [&](const AngleNames& angles, const std::string& name) {
        if (!name.empty() && angles.identified(name) == nullptr && looked.insert(name).second)
            missing.push_back(name);
    };
    look(video, preset.mainAngleName);
    for (const std::string& name : preset.otherAngleNames)
        look(video, name);
    look(audio, preset.audioAngleName);
    for (const auto& bookend : {preset.opening, preset.closing}) {
        if (bookend)
            look(video, bookend->angleName);
    }
    return missing;
}

DerivedRanges derivedRanges(double mainShare, double averageShot)
{
    const auto shortest = [](double target) { return std::max(limits::shotLength.lowest, std::floor(0.75 * target)); };
    const auto longest = [](double target) { return std::max(limits::shotLength.lowest, std::ceil(1.25 * target)); };
    const double main = mainShare * (2 * averageShot) / 100;
    const double other = (1 - mainShare / 100) * (2 * averageShot);
    return {shortest(main), longest(main), shortest(other), longest(other)};
}

} // namespace corvane
