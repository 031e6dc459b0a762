#pragma once

#include "engine/edit_settings.h"
#include "engine/setting_limits.h"

#include <string_view>

namespace corvane {

/// A field of EditSettings: its name in files, the member, and its limits if it is a number or a number per camera.
template <class Value>
struct SettingField {
    std::string_view name;
    Value EditSettings::* member;
    const Limits* limits = nullptr;
};

/// Calls `visit` once with each field of EditSettings, in the order in which files store them. All code that reads,
/// writes or checks every field uses this list.
template <class Visit>
void forEachSetting(const Visit& visit)
{
    visit(SettingField{"mainShare", &EditSettings::mainShare, &limits::mainShare});
    visit(SettingField{"averageShot", &EditSettings::averageShot, &limits::averageShot});
    visit(SettingField{"mainMinimum", &EditSettings::mainMinimum, &limits::shotLength});
    visit(SettingField{"mainMaximum", &EditSettings::mainMaximum, &limits::shotLength});
    visit(SettingField{"otherMinimum", &EditSettings::otherMinimum, &limits::shotLength});
    visit(SettingField{"otherMaximum", &EditSettings::otherMaximum, &limits::shotLength});
    visit(SettingField{"mainCamera", &EditSettings::mainCamera});
    visit(SettingField{"otherCameras", &EditSettings::otherCameras});
    visit(SettingField{"frequencies", &EditSettings::frequencies, &limits::frequency});
    visit(SettingField{"returnTimes", &EditSettings::returnTimes, &limits::returnTime});
    visit(SettingField{"audio", &EditSettings::audio});
    visit(SettingField{"doubleMain", &EditSettings::doubleMain});
    visit(SettingField{"openingEnabled", &EditSettings::openingEnabled});
    visit(SettingField{"openingCamera", &EditSettings::openingCamera});
    visit(SettingField{"openingSeconds", &EditSettings::openingSeconds, &limits::bookendLength});
    visit(SettingField{"closingEnabled", &EditSettings::closingEnabled});
    visit(SettingField{"closingCamera", &EditSettings::closingCamera});
    visit(SettingField{"closingSeconds", &EditSettings::closingSeconds, &limits::bookendLength});
    visit(SettingField{"sections", &EditSettings::sections});
}

/// True if each number in the settings is within its limits and no minimum is above its maximum.
[[nodiscard]] bool areWithinLimits(const EditSettings& settings);

} // namespace corvane
