#pragma once

#include "engine/cut_generation.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"

#include <optional>
#include <vector>

namespace corvane {

/// What is fixed before any draw: the bookends' lengths, the region between them and the fixed sections in order.
struct EditFrame {
    Frames openingFrames = 0;
    Frames closingFrames = 0;
    Frames freeStart = 0;
    Frames freeEnd = 0;
    std::vector<FixedCameraSection> fixedSections;
};

/// Checks the inputs of a generation, in the order in which the user is told what is wrong with them.
[[nodiscard]] EditFrame validateInputs(const CutEngine& engine, const GenerationInputs& inputs);

/// Length of an opening or closing shot, 0 without one, else at least 1 frame. Refuses lengths outside 1 … 120 s.
[[nodiscard]] Frames bookendFrames(const CutEngine& engine, const std::optional<BookendShot>& shot);

/// The sections sorted by start (equal starts keep their order). Refuses sections that are empty, leave
/// [freeStart, freeEnd), overlap, or are not held by one single range of their camera's footage.
[[nodiscard]] std::vector<FixedCameraSection> validateFixedSections(
    const CutEngine& engine, std::vector<FixedCameraSection> sections, Frames freeStart, Frames freeEnd);

/// True when one range holds all of [start, end).
[[nodiscard]] bool hasFootage(const CutEngine& engine, std::string_view camera, Frames start, Frames end);

/// A whole double as a frame count; what is far beyond any project, or no number, becomes the nearest count inside.
[[nodiscard]] Frames wholeFrames(double frames);

/// Seconds rounded to the nearest frame, halves away from zero, and at least 1.
[[nodiscard]] Frames roundedFrames(const CutEngine& engine, double seconds);

} // namespace corvane
