#pragma once

#include "base/identifier.h"
#include "engine/edit_settings.h"
#include "engine/setting_limits.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Presets identify cameras by their angles' names, because ids differ between projects.
namespace corvane {

struct PresetReturnTime {
    std::string angleName;
    double seconds = 0; ///< limits::returnTime
    bool operator==(const PresetReturnTime&) const = default;
};

struct PresetFrequency {
    std::string angleName;
    double weight = usualFrequency; ///< limits::frequency
    bool operator==(const PresetFrequency&) const = default;
};

struct PresetBookend {
    std::string angleName;
    double seconds = 15; ///< limits::bookendLength
    bool operator==(const PresetBookend&) const = default;
};

/// A named setup of pacing and camera balance, without fixed sections. Optional fields are absent in presets of earlier
/// versions; a bookend is also absent if it was off.
struct EditPreset {
    Identifier id;
    std::string name;
    double mainShare = 70;   ///< percent
    double averageShot = 10; ///< seconds
    bool doubleMain = false;
    std::string mainAngleName;
    std::vector<std::string> otherAngleNames; ///< in the order of the project's angles
    std::string audioAngleName;
    std::optional<std::vector<PresetReturnTime>> returnTimes;
    std::optional<std::vector<PresetFrequency>> frequencies;
    std::optional<PresetBookend> opening;
    std::optional<PresetBookend> closing;
    std::optional<double> mainMinimum; ///< seconds; each pair is either complete or absent
    std::optional<double> mainMaximum;
    std::optional<double> otherMinimum;
    std::optional<double> otherMaximum;
    bool operator==(const EditPreset&) const = default;
};

/// Reads a stored list; no bytes mean no presets. Throws PlatformError if the bytes are not a list of presets, and
/// refuses a list that breaks a rule (repeated ids or names, blank names, values out of range). Nothing is repaired.
[[nodiscard]] std::vector<EditPreset> decodePresets(std::string_view bytes);
/// True if the list contains data that encodePresets would not write, because a newer version wrote it. Throws
/// PlatformError if the bytes are not a list of presets.
[[nodiscard]] bool presetsHoldMore(std::string_view bytes);
[[nodiscard]] std::string encodePresets(const std::vector<EditPreset>& presets);

/// Sorts by name as people do: ignoring case, and digits by their numeric value.
void sortPresets(std::vector<EditPreset>& presets);

/// The form in which names of presets and cameras are compared: without case and surrounding white space.
[[nodiscard]] std::string comparableName(std::string_view name);
/// True if the names are equal in that form.
[[nodiscard]] bool sameName(std::string_view a, std::string_view b);

/// A preset of the setup on screen.
[[nodiscard]] EditPreset makePreset(
    const Identifier& id, const std::string& name, const ImportedProject& project, const CutEngine& engine,
    const EditSettings& settings);

/// The settings that result from applying a preset, and the message about it.
struct AppliedPreset {
    EditSettings settings;
    std::string notice;
    bool tookCameras = false; ///< the choice of cameras and audio comes from the preset
};

/// Pacing and balance are always applied. The choice of cameras is applied only if every name matches exactly one
/// angle. A bookend whose camera is not found is turned off.
[[nodiscard]] AppliedPreset appliedPreset(
    const EditPreset& preset, const ImportedProject& project, const CutEngine& engine, const EditSettings& current);

/// The names of the preset's cameras, bookend cameras and audio angle that do not match exactly one angle, in the
/// preset's order, each once. Cameras of which the preset has only a weight or a wait are not included.
[[nodiscard]] std::vector<std::string> camerasNotIdentified(
    const EditPreset& preset, const ImportedProject& project, const CutEngine& engine);

/// Shot ranges for presets that have none, derived from their share (percent) and average shot (seconds).
struct DerivedRanges {
    double mainMinimum, mainMaximum, otherMinimum, otherMaximum;
};
[[nodiscard]] DerivedRanges derivedRanges(double mainShare, double averageShot);

} // namespace corvane
