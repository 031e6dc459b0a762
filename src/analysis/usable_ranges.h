#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The ranges of a project that can be cut with the settings on screen. A frame is usable if the chosen audio and a
/// camera that may be on screen there cover it. A run of usable frames is offered if at least two video angles have
/// footage in it, because a project trimmed to it would otherwise be refused.
struct UsableRanges {
    std::vector<FrameRange> offered; ///< in order, with gaps between them
    std::vector<Frames> roundings;   ///< single unusable frames, where recordings were rounded to frames
    Frames frames = 0;               ///< total length of the offered ranges
    bool wholeProject = false;       ///< one range covers the whole project
};

/// None if the settings cannot be read, which the setup warning reports.
[[nodiscard]] std::optional<UsableRanges> usableRanges(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// What would be usable with another angle's continuous audio.
struct OtherAudio {
    std::string angle; ///< id
    UsableRanges usable;
};
/// Every other angle with audio, the one with the most usable frames first.
[[nodiscard]] std::vector<OtherAudio> otherAudioAngles(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings);

/// "66 %"; never 0 % or 100 % for a part that is neither empty nor the whole.
[[nodiscard]] std::string percentText(Frames part, Frames whole);

/// "Usable: 10 ranges, 66 % of the project; the longest 00:17:10:01 to 00:45:06:17"; empty if the whole project is
/// usable.
[[nodiscard]] std::string usableLine(const CutEngine& engine, const EditSettings& settings, const UsableRanges& usable);

/// "With the audio of Choir: 100 %", for the angle that would make most of the project usable; empty if none is better.
[[nodiscard]] std::string betterAudioLine(
    const ImportedProject& project, const CutEngine& engine, const UsableRanges& usable,
    const std::vector<OtherAudio>& others);

/// The ranges with the timecodes at which to blade, what to do in Final Cut, and what other audio angles would give;
/// empty if the whole project is usable.
[[nodiscard]] std::string usableList(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, const UsableRanges& usable,
    const std::vector<OtherAudio>& others);

} // namespace corvane
