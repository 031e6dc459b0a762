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

/// Usage by camera; a camera without cuts has no entry. Cuts of one camera that touch are one shot.
[[nodiscard]] UsageByCamera cameraUsage(const std::vector<Cut>& cuts);

/// The footage that generation may use, as ranges in no order, or why that cannot be told.
struct CoverageReport {
    std::vector<FrameRange> covered;
    std::optional<std::string> message;
    bool operator==(const CoverageReport&) const = default;
};

/// Inside the bookends and fixed sections only their own camera counts, elsewhere any of `cameras`. Never fails:
/// bookends or sections that do not fit are told in the message.
[[nodiscard]] CoverageReport uncoveredVideoSections(
    const CutEngine& engine, const std::vector<std::string>& cameras, const std::optional<BookendShot>& opening,
    const std::optional<BookendShot>& closing, const std::vector<FixedCameraSection>& sections);

/// The same for the settings on screen; timecodes that cannot be read are told in the message.
[[nodiscard]] CoverageReport selectedCoverage(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// The gaps that `covered` leaves in [0, length), in order.
[[nodiscard]] std::vector<FrameRange> uncoveredStretches(std::vector<FrameRange> covered, Frames length);

/// The first reason why a generation would fail or the edit be incomplete; none when there is none. `decimalSign` is
/// the user's, for the gap's length in seconds.
[[nodiscard]] std::optional<std::string> setupWarning(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    std::string_view decimalSign = ".");

/// Refuses an audio angle whose sound is not exactly one range over the whole project.
void checkContinuousAudio(const CutEngine& engine, std::string_view audioAngle);

} // namespace corvane
