#pragma once

#include "import/time_base.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// SMPTE timecode: HH:MM:SS:FF at the nominal (whole) frame rate. Drop-frame timecode, written with a semicolon before
/// the frames, skips the first labels of every minute that is not a multiple of ten, so that it agrees with the clock
/// at 29.97 and 59.94 frames per second. No frame is ever dropped.
namespace corvane {

enum class FrameCount { nonDrop, dropFrame };

/// The label of an absolute frame count, with a minus sign below 0 and as many digits for the hours as needed.
/// Drop-frame counting, if requested, applies only to frame durations equal to 1001/30000 or 1001/60000.
[[nodiscard]] std::string timecodeText(
    Frames frames, std::int64_t frameNumerator, std::int64_t frameDenominator, FrameCount count);

/// The label of a length in frames, in the sequence's own format.
[[nodiscard]] std::string timecodeLength(const TimeBase& time, Frames frames);

/// The label of a project frame, counted from timelineStart in the sequence's own format.
[[nodiscard]] std::string timecodeLabel(const TimeBase& time, Frames frame);

/// The project frame of a typed label, which may lie outside the project. Colons and semicolons are equivalent, and
/// leading zeros are optional. Refuses other texts, a frame field at or above the nominal rate, and labels that
/// drop-frame skips.
[[nodiscard]] Frames parseTimecode(const TimeBase& time, std::string_view text);

/// The next existing label after a typed one that drop-frame skips: 01:25:00;02 for 01:25:00;00. None for any other
/// text.
[[nodiscard]] std::optional<std::string> labelAfterSkipped(const TimeBase& time, std::string_view text);

/// The labels of a second of timecode: the whole number that is nearest to the frame rate, at least 1.
[[nodiscard]] std::int64_t labelsPerSecond(const TimeBase& time);

/// The frames of `within`, in order, with the first label at or after each multiple of `step` labels, at least 1. A
/// step of one minute gives 00:01:00:00 at 23.976 and 25, but 00:01:00;02 at 29.97 drop-frame, which skips the labels
/// before it. Frames with labels below 00:00:00:00 are not included.
[[nodiscard]] std::vector<Frames> roundTimes(const TimeBase& time, std::int64_t step, const FrameRange& within);

} // namespace corvane
