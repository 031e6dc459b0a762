#pragma once

#include "import/time_base.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// SMPTE timecode: HH:MM:SS:FF at the nominal (whole) frame rate. Drop-frame labels, written with a semicolon before
/// the frames, leave out the first labels of every minute that is no multiple of ten, so that they keep up with the
/// clock at 29.97 and 59.94 frames a second; no frame is ever dropped.
namespace corvane {

enum class FrameCount { nonDrop, dropFrame };

/// The label of an absolute frame count, with a minus sign below 0 and as many digits of hours as it takes. Drop-frame
/// counting is asked for; it applies only at frame durations that equal 1001/30000 or 1001/60000.
[[nodiscard]] std::string timecodeText(
    Frames frames, std::int64_t frameNumerator, std::int64_t frameDenominator, FrameCount count);

/// The label of a project frame: counted from timelineStart, as the sequence counts.
[[nodiscard]] std::string timecodeLabel(const TimeBase& time, Frames frame);

/// The project frame of a typed label, which may lie outside the project. Colons and semicolons are the same, widths
/// are free. Refuses other texts, a frame field at or above the nominal rate, and labels that drop-frame leaves out.
[[nodiscard]] Frames parseTimecode(const TimeBase& time, std::string_view text);

/// The first label that exists after a typed one that drop-frame leaves out: 01:25:00;02 for 01:25:00;00. None for any
/// other text.
[[nodiscard]] std::optional<std::string> labelAfterSkipped(const TimeBase& time, std::string_view text);

/// The project frames, in order, that carry the first label at or after each multiple of `step` seconds of timecode:
/// 00:01:00:00 at 23.976 and 25, but 00:01:00;02 at 29.97 drop-frame, where the labels before it are left out. Labels
/// below 00:00:00:00 are left out too.
[[nodiscard]] std::vector<Frames> roundTimes(const TimeBase& time, std::int64_t step);

} // namespace corvane
