#pragma once

#include "base/identifier.h"
#include "import/frame_range.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace corvane {

/// A fixed camera section as the user types it. `start` and `end` are timecode text, `name` is for display only.
struct SectionDraft {
    Identifier id;
    std::string name;
    std::string camera;
    std::string start;
    std::string end;
    bool operator==(const SectionDraft&) const = default;
};

/// Everything that the user chose for one rough edit, with the values of a new window. Cameras are named by the id
/// of their angle. The maps may hold cameras that take no part.
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
    std::string openingCamera;  ///< kept, but not used, while openingEnabled is false; so is the next
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

/// One entry of a cut list: `duration` frames (at least 1) of a camera from project frame `start` on. In a cut list
/// each cut starts where the previous one ends, the first at 0, and the last ends with the project.
struct Cut {
    Identifier id;
    std::string angle;
    Frames start = 0;
    Frames duration = 0;
    bool operator==(const Cut&) const = default;
};

} // namespace corvane
