#include "timecode/timecode.h"

#include "base/numbers.h"
#include "base/text.h"
#include "import/final_cut_import_error.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace corvane {

namespace {

/// How timecode labels count at a given frame duration.
struct LabelCount {
    std::int64_t nominal = 1; ///< labels per second
    std::int64_t dropped = 0; ///< labels skipped at the start of a minute; 0 without drop-frame

    LabelCount(std::int64_t frameNumerator, std::int64_t frameDenominator, FrameCount count)
    {
        const double rate = static_cast<double>(frameDenominator) / static_cast<double>(frameNumerator);
        nominal = std::max<std::int64_t>(1, std::llround(rate));
        const bool dropRate =
            (nominal == 30 || nominal == 60) && frameDenominator * 1001 == frameNumerator * nominal * 1000;
        if (count == FrameCount::dropFrame && dropRate)
            dropped = nominal / 15;
    }
};

FrameCount frameCount(const TimeBase& time)
{
    return time.dropFrame ? FrameCount::dropFrame : FrameCount::nonDrop;
}

LabelCount labelCount(const TimeBase& time)
{
    return {time.frameNumerator, time.frameDenominator, frameCount(time)};
}

/// The number of frames before the label that consists of these whole seconds and frames.
std::int64_t framesBefore(const LabelCount& labels, std::int64_t seconds, std::int64_t frames)
{
    const std::int64_t minutes = seconds / 60;
    return seconds * labels.nominal + frames - labels.dropped * (minutes - minutes / 10);
}

/// True if drop-frame skips the first labels of this second.
bool dropsLabels(std::int64_t seconds)
{
    return seconds % 60 == 0 && seconds % 600 != 0;
}

/// The label of an absolute frame count of at least 0, as a number: 1800 + 2 for 00:01:00;02.
std::int64_t labelNumber(const LabelCount& labels, Frames frames)
{
    if (labels.dropped == 0)
        return frames;
    const std::int64_t perTenMinutes = labels.nominal * 600 - 9 * labels.dropped;
    const std::int64_t perMinute = labels.nominal * 60 - labels.dropped;
    const std::int64_t rest = frames % perTenMinutes;
    const std::int64_t minutes = rest < labels.dropped ? 0 : (rest - labels.dropped) / perMinute;
    return frames + labels.dropped * (9 * (frames / perTenMinutes) + minutes);
}

void appendTwoDigits(std::string& text, std::int64_t number)
{
    if (number < 10)
        text += '0';
    text += std::to_string(number);
}

struct TypedLabel {
    std::int64_t hours, minutes, seconds, frames;

    [[nodiscard]] std::int64_t wholeSeconds() const { return (hours * 60 + minutes) * 60 + seconds; }
};

std::optional<TypedLabel> readLabel(std::string_view text)
{
    text = trimmed(text);
    std::array<std::int64_t, 4> fields{};
    for (std::size_t n = 0; n < fields.size(); ++n) {
        const std::size_t end = text.find_first_of(":;");
        const std::string_view piece = text.substr(0, end);
        const auto number = readInteger(piece);
        const bool last = n + 1 == fields.size();
        if (!number || piece.find_first_not_of("0123456789") != std::string_view::npos ||
            last != (end == std::string_view::npos))
            return std::nullopt;
        fields[n] = *number;
        if (!last)
            text.remove_prefix(end + 1);
    }
    const TypedLabel label{fields[0], fields[1], fields[2], fields[3]};
    const bool exists = label.hours < 10'000 && label.minutes < 60 && label.seconds < 60;
    return exists ? std::optional(label) : std::nullopt;
}

} // namespace

std::string timecodeText(Frames frames, std::int64_t frameNumerator, std::int64_t frameDenominator, FrameCount count)
{
    const LabelCount labels(frameNumerator, frameDenominator, count);
    const std::int64_t label = labelNumber(labels, std::abs(frames));
    const std::int64_t seconds = label / labels.nominal;
    std::string text = frames < 0 ? "-" : "";
    appendTwoDigits(text, seconds / 3600);
    text += ':';
    appendTwoDigits(text, seconds / 60 % 60);
    text += ':';
    appendTwoDigits(text, seconds % 60);
    text += labels.dropped > 0 ? ';' : ':';
    appendTwoDigits(text, label % labels.nominal);
    return text;
}

std::string timecodeLength(const TimeBase& time, Frames frames)
{
    return timecodeText(frames, time.frameNumerator, time.frameDenominator, frameCount(time));
}

std::string timecodeLabel(const TimeBase& time, Frames frame)
{
    return timecodeLength(time, frame + time.timelineStart);
}

Frames parseTimecode(const TimeBase& time, std::string_view text)
{
    const auto label = readLabel(text);
    if (!label)
        throw FinalCutImportError::invalid("Enter timecode as HH:MM:SS:FF, for example 00:05:30:00.");
    const LabelCount labels = labelCount(time);
    if (label->frames >= labels.nominal)
        throw FinalCutImportError::invalid(
            "The frame field must be less than " + std::to_string(labels.nominal) + " for this project.");
    const std::int64_t seconds = label->wholeSeconds();
    if (dropsLabels(seconds) && label->frames < labels.dropped)
        throw FinalCutImportError::invalid("That frame label is skipped in drop-frame timecode.");
    return framesBefore(labels, seconds, label->frames) - time.timelineStart;
}

std::optional<std::string> labelAfterSkipped(const TimeBase& time, std::string_view text)
{
    const auto label = readLabel(text);
    const LabelCount labels = labelCount(time);
    if (!label || !dropsLabels(label->wholeSeconds()) || label->frames >= labels.dropped)
        return std::nullopt;
    return timecodeLabel(time, framesBefore(labels, label->wholeSeconds(), labels.dropped) - time.timelineStart);
}

std::int64_t labelsPerSecond(const TimeBase& time)
{
    return labelCount(time).nominal;
}

std::vector<Frames> roundTimes(const TimeBase& time, std::int64_t step, const FrameRange& within)
{
    const LabelCount labels = labelCount(time);
    const Frames earliest = std::max<Frames>(0, within.start + time.timelineStart);
    std::vector<Frames> frames;
    for (std::int64_t label = labelNumber(labels, earliest) / step * step;; label += step) {
        const std::int64_t seconds = label / labels.nominal;
        const std::int64_t skipped = dropsLabels(seconds) ? labels.dropped : 0;
        const Frames frame =
            framesBefore(labels, seconds, std::max(label % labels.nominal, skipped)) - time.timelineStart;
        if (frame >= within.end)
            return frames;
        if (frame >= within.start && (frames.empty() || frames.back() < frame)) // two skipped labels give one frame
            frames.push_back(frame);
    }
}

} // namespace corvane
