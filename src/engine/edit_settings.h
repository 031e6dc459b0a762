#pragma once

#include "base/identifier.h"
#include "import/frame_range.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// A fixed camera section as the user typed it. `start` and `end` are timecode text; `name` is only for display.
struct SectionDraft {
    Identifier id;
    std::string name;
    std::string camera;
    std::string start;
    std::string end;
    bool operator==(const SectionDraft&) const = default;
};

/// All settings of one rough edit; the defaults are those of a new window. Cameras are identified by their angle's id.
/// The maps may contain cameras that are not included.
struct EditSettings {
    double mainShare = 70;   ///< target screen time of the main camera, percent, limits::mainShare
    double averageShot = 10; ///< seconds, limits::averageShot
    double mainMinimum = 10; ///< seconds, limits::shotLength, like the next three; no minimum is above its maximum
    double mainMaximum = 25;
    double otherMinimum = 4;
    double otherMaximum = 8;
    std::string mainCamera;
    std::set<std::string> otherCameras;
    std::map<std::string, double, std::less<>> frequencies; ///< weights, limits::frequency; see frequencyOf
    std::map<std::string, double, std::less<>> returnTimes; ///< seconds, limits::returnTime; see returnTimeOf
    std::string audio;                                      ///< the continuous audio angle
    bool doubleMain = false;
    bool openingEnabled = false;
    std::string openingCamera;  ///< kept but not used while openingEnabled is false, like the next field
    double openingSeconds = 15; ///< limits::bookendLength
    bool closingEnabled = false;
    std::string closingCamera;
    double closingSeconds = 15;
    std::vector<SectionDraft> sections;
    bool operator==(const EditSettings&) const = default;
};

/// A camera's frequency, in other words its weight, in EditSettings::frequencies; usualFrequency if it is absent there.
[[nodiscard]] double frequencyOf(
    const std::map<std::string, double, std::less<>>& frequencies, std::string_view camera);

/// A camera's return time in EditSettings::returnTimes, in seconds; 0 if it is absent there.
[[nodiscard]] double returnTimeOf(
    const std::map<std::string, double, std::less<>>& returnTimes, std::string_view camera);

/// A camera held over the half-open range [start, end) of project frames.
struct FixedCameraSection {
    std::string angle;
    Frames start = 0;
    Frames end = 0;
    bool operator==(const FixedCameraSection&) const = default;
};

/// An opening or closing shot.
struct BookendShot {
    std::string angle;
    double seconds = 0;
    bool operator==(const BookendShot&) const = default;
};

/// A closed interval of seconds, lower at or below upper.
struct ShotLengthRange {
    double lower = 0;
    double upper = 0;
    bool operator==(const ShotLengthRange&) const = default;
};

/// One entry of a cut list: `duration` frames (at least 1) of a camera, beginning at project frame `start`. The first
/// cut of a cut list starts at 0, each further cut starts where the previous one ends, and the last ends with the
/// project.
struct Cut {
    Identifier id;
    std::string angle;
    Frames start = 0;
    Frames duration = 0;
    bool operator==(const Cut&) const = default;
};

} // namespace corvane
