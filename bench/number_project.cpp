#include "bench/number_project.h"

#include "bench/document_text.h"
#include "bench/repeatable_numbers.h"
#include "timecode/timecode.h"

#include <algorithm>

namespace corvane::bench {

namespace {

constexpr std::int64_t angles = 16;
constexpr Frames framesPerSecond = 25;
constexpr Frames framesPerHour = 3600 * framesPerSecond;
constexpr Frames period = framesPerHour / 30; // from one range of an angle to the next
constexpr Frames footage = period - 10 * framesPerSecond;

/// Each angle's ranges start a sixteenth of a period after those of the previous angle, so that few angles have gaps at
/// the same time.
Frames firstStretch(std::int64_t angle)
{
    return angle * period / angles;
}

std::vector<FrameRange> videoRanges(std::int64_t angle, Frames length)
{
    std::vector<FrameRange> all;
    for (Frames start = firstStretch(angle); start < length; start += period)
        all.push_back({start, std::min(start + footage, length)});
    return all;
}

/// A fixed section of fifteen seconds every hour, each on another camera.
void addSections(NumberProject& project, std::int64_t hours)
{
    for (std::int64_t hour = 0; hour < hours; ++hour) {
        const std::int64_t angle = 1 + hour % (angles - 1);
        const Frames start = hour * framesPerHour + 5 * period + firstStretch(angle) + framesPerSecond;
        SectionDraft draft;
        draft.camera = project.imported.angles[static_cast<std::size_t>(angle)].id;
        draft.start = timecodeLabel(project.engine, start);
        draft.end = timecodeLabel(project.engine, start + 15 * framesPerSecond);
        project.settings.sections.push_back(draft);
    }
}

void addSettings(NumberProject& project, std::int64_t hours)
{
    EditSettings& settings = project.settings;
    const auto& all = project.imported.angles;
    settings.mainShare = 60;
    settings.mainMinimum = 4;
    settings.mainMaximum = 15;
    settings.otherMinimum = 3;
    settings.otherMaximum = 9;
    settings.mainCamera = settings.audio = all.front().id;
    settings.openingEnabled = settings.closingEnabled = true;
    settings.openingCamera = all.front().id;
    settings.closingCamera = all[angles / 2].id;
    for (std::size_t angle = 1; angle < all.size(); ++angle) {
        settings.otherCameras.insert(all[angle].id);
        settings.frequencies[all[angle].id] = static_cast<double>(1 + angle % 10);
        if (angle % 2 == 0)
            settings.returnTimes[all[angle].id] = 20;
    }
    addSections(project, hours);
}

} // namespace

NumberProject numberProject(std::int64_t hours)
{
    NumberProject project;
    project.engine.length = hours * framesPerHour;
    project.imported.duration = project.engine.seconds(project.engine.length);
    project.imported.framesPerSecond = framesPerSecond;
    RepeatableNumbers numbers(2);
    for (std::int64_t angle = 0; angle < angles; ++angle) {
        const std::string id = numbers.base64(22);
        ImportedAngle imported;
        imported.id = id;
        imported.name = numbered("Camera ", static_cast<std::size_t>(angle) + 1);
        project.imported.angles.push_back(imported);
        project.engine.coverage[id] = videoRanges(angle, project.engine.length);
        project.engine.audioCoverage[id] = angle == 0 ? std::vector<FrameRange>{{0, project.engine.length}}
                                                      : videoRanges(angle, project.engine.length);
    }
    project.engine.audioID = project.imported.angles.front().id;
    addSettings(project, hours);
    return project;
}

} // namespace corvane::bench
