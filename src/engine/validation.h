#pragma once

#include "engine/cut_generation.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"

#include <optional>
#include <vector>

namespace corvane {

/// The frame within which the edit is drawn, known before the first draw: the bookends' lengths, the region between
/// them in project frames, and the fixed sections in order.
struct EditFrame {
    Frames openingFrames = 0;
    Frames closingFrames = 0;
    Frames freeStart = 0;
    Frames freeEnd = 0;
    std::vector<FixedCameraSection> fixedSections;
};

/// Checks the inputs for generating. The order of the checks decides which problem the user is told first.
[[nodiscard]] EditFrame validateInputs(const CutEngine& engine, const GenerationInputs& inputs);

/// The bookendLength of an opening or closing shot, in frames; 0 if there is none. Refuses lengths outside
/// limits::bookendLength.
[[nodiscard]] Frames bookendFrames(const CutEngine& engine, const std::optional<BookendShot>& shot);

/// The sections sorted by start (equal starts keep their order). Refuses sections that are empty, extend outside
/// [freeStart, freeEnd), overlap, or are not within a single range of their camera's footage.
[[nodiscard]] std::vector<FixedCameraSection> validateFixedSections(
    const CutEngine& engine, std::vector<FixedCameraSection> sections, Frames freeStart, Frames freeEnd);

/// True if a single range of the camera's footage contains all of [start, end).
[[nodiscard]] bool hasFootage(const CutEngine& engine, std::string_view camera, Frames start, Frames end);

/// What is wrong with a list of cuts, at the first place where something is.
enum class CutListFault {
    invalidCut, ///< a cut does not begin where the one before ended, lasts no frame, leaves the project, or has no
                ///< footage
    incomplete, ///< the last cut ends before the project does
};
/// None for a list that shows the whole project without a gap, each cut with footage throughout.
[[nodiscard]] std::optional<CutListFault> cutListFault(const CutEngine& engine, const std::vector<Cut>& cuts);

/// Converts a whole double to a frame count. Values far beyond any project are clamped; NaN becomes 0.
[[nodiscard]] Frames wholeFrames(double frames);

/// Seconds in frames, rounded to the nearest frame (halves away from zero).
[[nodiscard]] Frames roundedFrames(const CutEngine& engine, double seconds);

/// The frames of an opening or closing shot of so many seconds: rounded, and at least 1. Any length is accepted.
[[nodiscard]] Frames bookendLength(const CutEngine& engine, double seconds);

} // namespace corvane
