#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Screen time and shots of one camera in a cut list.
struct CameraUsage {
    std::string id;
    Frames frames = 0;
    std::int64_t shots = 0;
    bool operator==(const CameraUsage&) const = default;
};
using UsageByCamera = std::map<std::string, CameraUsage, std::less<>>;

/// Usage by camera; a camera without cuts has no entry. Adjacent cuts of one camera count as one shot.
[[nodiscard]] UsageByCamera cameraUsage(const std::vector<Cut>& cuts);

/// What a camera has of the whole project.
struct CameraShare {
    ImportedAngle angle;
    Frames frames = 0;
    std::int64_t shots = 0;
    double percent = 0;
};
/// The usage of each video angle, in project order, also of those without cuts.
[[nodiscard]] std::vector<CameraShare> cameraShares(
    const ImportedProject& project, const CutEngine& engine, const std::vector<Cut>& cuts);

/// The footage that generation may use, as ranges in no particular order, or the reason why it cannot be determined.
struct CoverageReport {
    std::vector<FrameRange> covered;
    std::optional<std::string> message;
    bool operator==(const CoverageReport&) const = default;
};

/// Inside the bookends and fixed sections only their own camera counts, elsewhere any of `cameras`. Never throws: if
/// bookends or sections do not fit, the message says so.
[[nodiscard]] CoverageReport uncoveredVideoSections(
    const CutEngine& engine, const std::vector<std::string>& cameras, const std::optional<BookendShot>& opening,
    const std::optional<BookendShot>& closing, const std::vector<FixedCameraSection>& sections);

/// The same for the settings on screen. If a timecode cannot be read, the message says so.
[[nodiscard]] CoverageReport selectedCoverage(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// The gaps that `covered` leaves in [0, length), in order.
[[nodiscard]] std::vector<FrameRange> uncoveredStretches(std::vector<FrameRange> covered, Frames length);

/// The first reason why generating would fail or leave the edit incomplete, if there is one. `decimalSign` is the
/// user's, for the gap's length in seconds.
[[nodiscard]] std::optional<std::string> setupWarning(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    std::string_view decimalSign = ".");

/// Refuses an audio angle whose audio is not exactly one range that covers the whole project.
void checkContinuousAudio(const CutEngine& engine, std::string_view audioAngle);

} // namespace corvane
