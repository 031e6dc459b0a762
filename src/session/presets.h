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

/// Presets name cameras by their angles' names, because ids differ from project to project.
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

/// A named setup of pacing and camera balance. Fixed sections are never part of it. What is optional is absent in
/// presets of earlier versions, the bookends also where they were off.
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
    std::optional<double> mainMinimum; ///< seconds; each pair is there as a whole or not at all
    std::optional<double> mainMaximum;
    std::optional<double> otherMinimum;
    std::optional<double> otherMaximum;
    bool operator==(const EditPreset&) const = default;
};

/// Reads a stored list; no bytes are no presets. Fails with PlatformError where it is no list of presets, and refuses
/// one that breaks a rule (repeated ids or names, blank names, values out of range). Nothing is repaired.
[[nodiscard]] std::vector<EditPreset> decodePresets(std::string_view bytes);
/// True when a list that can be read holds what encodePresets would not write: a newer version's. Fails as
/// decodePresets where it is no list of presets.
[[nodiscard]] bool presetsHoldMore(std::string_view bytes);
[[nodiscard]] std::string encodePresets(const std::vector<EditPreset>& presets);

/// By name as people sort: without regard to case, runs of digits by value.
void sortPresets(std::vector<EditPreset>& presets);

/// The same name but for case and surrounding white space.
[[nodiscard]] bool sameName(std::string_view a, std::string_view b);

/// The setup on screen as a preset.
[[nodiscard]] EditPreset makePreset(
    const Identifier& id, const std::string& name, const ImportedProject& project, const CutEngine& engine,
    const EditSettings& settings);

/// What applying a preset puts on screen, and what it says about it.
struct AppliedPreset {
    EditSettings settings;
    std::string notice;
};

/// Pacing and balance are taken over in any case; the choice of cameras only when every name is found on just one
/// angle; a bookend whose camera is not found is turned off.
[[nodiscard]] AppliedPreset appliedPreset(
    const EditPreset& preset, const ImportedProject& project, const CutEngine& engine, const EditSettings& current);

/// Shot ranges of presets that have none, from their share (percent) and average shot (seconds).
struct DerivedRanges {
    double mainMinimum, mainMaximum, otherMinimum, otherMaximum;
};
[[nodiscard]] DerivedRanges derivedRanges(double mainShare, double averageShot);

} // namespace corvane
