#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// What of a project can be cut with the settings on screen. A frame is usable when the chosen audio covers it and so
/// does a camera that may be on screen there. A run of such frames is offered when two video angles or more have
/// footage in it: trimmed to one, a project would be refused.
struct UsableRanges {
    std::vector<FrameRange> offered; ///< in order, apart
    std::vector<Frames> roundings;   ///< unusable frames that stand alone: recordings that were rounded to frames
    Frames frames = 0;               ///< in all offered ranges
    bool wholeProject = false;       ///< one range is the project
};

/// None while the settings cannot be read, which the setup warning tells.
[[nodiscard]] std::optional<UsableRanges> usableRanges(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// What would be usable with another angle as the continuous audio.
struct OtherAudio {
    std::string angle; ///< id
    UsableRanges usable;
};
/// Every other angle with sound, the one with the most usable frames first.
[[nodiscard]] std::vector<OtherAudio> otherAudioAngles(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// "66 %"; never 0 or 100 for a part that is neither.
[[nodiscard]] std::string percentText(Frames part, Frames whole);

/// "Usable: 10 ranges, 66 % of the project; the longest 00:17:10:01 to 00:45:06:17"; empty for a whole project.
[[nodiscard]] std::string usableLine(const CutEngine& engine, const EditSettings& settings, const UsableRanges& usable);

/// "With the audio of Choir: 100 %": the angle that would make most usable; empty when none is better.
[[nodiscard]] std::string betterAudioLine(
    const ImportedProject& project, const CutEngine& engine, const UsableRanges& usable,
    const std::vector<OtherAudio>& others);

/// The ranges with the timecodes to blade at, what to do in Final Cut, and what other audio angles would give; empty
/// for a whole project.
[[nodiscard]] std::string usableList(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, const UsableRanges& usable,
    const std::vector<OtherAudio>& others);

} // namespace corvane
