#pragma once

#include "base/identifier.h"
#include "base/random.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// The editor's rules in the form that the engine needs.
struct GenerationInputs {
    double mainShare = 0.7;  ///< fraction; limits::mainShare is in percent
    double averageShot = 10; ///< seconds, limits::averageShot
    std::string mainCamera;
    std::vector<std::string> otherCameras; ///< in the order of the project's angles
    bool doubleMain = false;
    std::optional<ShotLengthRange> mainRange; ///< seconds, limits::shotLength
    std::optional<ShotLengthRange> otherRange;
    std::optional<BookendShot> opening;
    std::optional<BookendShot> closing;
    std::map<std::string, double, std::less<>> frequencies; ///< limits::frequency; see frequencyOf
    std::vector<FixedCameraSection> fixedSections;          ///< in any order
    std::map<std::string, double, std::less<>> returnTimes; ///< seconds, limits::returnTime; see returnTimeOf
};

/// What generating needs from outside the engine.
struct GenerationSources {
    RandomNumbers randomNumbers = secureRandomNumbers();
    IdentifierSource identifiers = randomIdentifiers();
};

/// A random cut list that covers the whole project. After each shot on another camera the edit returns to the main
/// camera if it can. The other cameras are drawn by weight from those that have footage and whose return time has
/// passed. Shot lengths are drawn so that the main camera tends towards its share. Sections and bookends are placed
/// exactly.
///
/// Refuses what validateInputs refuses, before any draw; then a frame at which no camera has footage, a frame at which
/// return times leave no camera, and a range that contains no whole frame. For each free shot it draws, in this order:
/// the camera, the nominal length, the length within its range (if there is one), and the doubling (for the main camera
/// with doubleMain).
[[nodiscard]] std::vector<Cut> generateCuts(
    const CutEngine& engine, const GenerationInputs& inputs, const GenerationSources& sources = {});

} // namespace corvane
