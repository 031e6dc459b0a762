#pragma once

#include "base/identifier.h"
#include "import/frame_range.h"

#include <map>
#include <set>
#include <string>
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
    double mainShare = 70;   ///< target screen time of the main camera, percent, 10 … 90
    double averageShot = 10; ///< seconds, 4 … 20
    double mainMinimum = 10; ///< seconds, 1 … 120, like the next three; each minimum at or below its maximum
    double mainMaximum = 25;
    double otherMinimum = 4;
    double otherMaximum = 8;
    std::string mainCamera;
    std::set<std::string> otherCameras;
    std::map<std::string, double, std::less<>> frequencies; ///< weight, 1 … 10; an absent camera has 5
    std::map<std::string, double, std::less<>> returnTimes; ///< seconds, 0 … 600; an absent camera has 0
    std::string audio;                                      ///< the continuous audio angle
    bool doubleMain = false;
    bool openingEnabled = false;
    std::string openingCamera;  ///< kept but not used while openingEnabled is false, like the next field
    double openingSeconds = 15; ///< 1 … 120
    bool closingEnabled = false;
    std::string closingCamera;
    double closingSeconds = 15;
    std::vector<SectionDraft> sections;
    bool operator==(const EditSettings&) const = default;
};

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
