#include "analysis/shot_reasons.h"

#include "analysis/names.h"
#include "base/numbers.h"
#include "base/text.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr std::size_t longestName = 100; ///< code points; each shot's sentence repeats the names

Frames endOf(const Cut& cut)
{
    return cut.start + cut.duration;
}

} // namespace

EditMarks editMarks(const CutEngine& engine, const EditSettings& settings)
{
    EditMarks marks;
    if (settings.openingEnabled)
        marks.opening = FrameRange{0, std::min(roundedFrames(engine, settings.openingSeconds), engine.length)};
    if (settings.closingEnabled) {
        const Frames frames = std::min(roundedFrames(engine, settings.closingSeconds), engine.length);
        marks.closing = FrameRange{engine.length - frames, engine.length};
    }
    try {
        marks.sections = fixedSections(engine, settings.sections);
    } catch (const std::exception&) {
        marks.sections.clear(); // a stored session may contain sections that were never validated
    }
    for (std::size_t i = 0; i < marks.sections.size(); ++i) {
        marks.sectionsByStart.emplace(marks.sections[i].start, i);
        marks.sectionsByEnd.emplace(marks.sections[i].end, i);
    }
    return marks;
}

std::optional<std::string> shotEndReason(
    const CutEngine& engine, const std::vector<Cut>& cuts, const EditMarks& marks, std::size_t position)
{
    const Cut& cut = cuts[position];
    const Frames end = endOf(cut);
    if (end == engine.length)
        return "Ends with the project.";
    if (marks.opening && marks.opening->end == end)
        return "The opening shot ends.";
    const auto ending = marks.sectionsByEnd.find(end);
    if (ending != marks.sectionsByEnd.end() && marks.sections[ending->second].angle == cut.angle)
        return "The fixed section ends.";
    if (marks.sectionsByStart.contains(end))
        return "A fixed section begins.";
    if (marks.closing && marks.closing->start == end)
        return "The closing shot begins.";
    if (std::ranges::binary_search(engine.videoRanges(cut.angle), end, {}, &FrameRange::end))
        return "The camera's footage ends.";
    return std::nullopt;
}

ShotReasons::ShotReasons(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, const std::vector<Cut>& cuts)
    : engine_(engine), settings_(settings), cuts_(cuts), marks_(editMarks(engine, settings))
{
    try {
        frame_ = validateInputs(engine, generationInputs(project, engine, settings));
    } catch (const FinalCutImportError&) {
        return;
    }
    const auto add = [&](std::string_view id) {
        Camera camera;
        camera.id = id;
        camera.name = withoutMiddle(angleName(project, id), longestName);
        camera.weighted = camera.name + " (" + shortNumber(frequencyOf(settings.frequencies, id)) + ")";
        camera.wait = wholeFrames(std::ceil(engine.frames(returnTimeOf(settings.returnTimes, id))));
        camera.footage = &engine.videoRanges(id);
        cameras_.push_back(std::move(camera));
    };
    add(settings.mainCamera);
    for (const std::string& camera : includedOtherCameras(project, engine, settings))
        add(*settings.otherCameras.find(camera));
    cutCameras_.reserve(cuts.size());
    for (std::size_t position = 0; position < cuts.size(); ++position) {
        const auto found = std::ranges::find(cameras_, cuts[position].angle, &Camera::id);
        cutCameras_.push_back(found == cameras_.end() ? noCamera : static_cast<std::size_t>(found - cameras_.begin()));
        if (found != cameras_.end())
            found->shots.push_back(position);
    }
}

std::optional<ShotReasons::Choice> ShotReasons::placed(std::size_t position) const
{
    const Cut& cut = cuts_[position];
    Choice choice;
    if (settings_.openingEnabled && cut.start == 0)
        choice.kind = Choice::Kind::opening;
    else if (settings_.closingEnabled && cut.start == frame_->freeEnd)
        choice.kind = Choice::Kind::closing;
    const auto section = marks_.sectionsByStart.find(cut.start);
    if (choice.kind == Choice::Kind::none && section != marks_.sectionsByStart.end()) {
        choice.kind = Choice::Kind::section;
        choice.section = section->second;
    }
    return choice.kind == Choice::Kind::none ? std::nullopt : std::optional(choice);
}

std::optional<Frames> ShotReasons::lastShotEnd(const Camera& camera, std::size_t position) const
{
    const auto next = std::ranges::lower_bound(camera.shots, position);
    return next == camera.shots.begin() ? std::nullopt : std::optional(endOf(cuts_[*std::prev(next)]));
}

ShotReasons::Choice ShotReasons::choice(std::size_t position) const
{
    Choice choice;
    if (!frame_)
        return choice;
    if (auto fixed = placed(position))
        return *fixed;
    const Frames start = cuts_[position].start;
    const std::size_t onScreen = position == 0 ? noCamera : cutCameras_[position - 1];
    std::vector<std::size_t>& eligible = choice.cameras;
    eligible.reserve(cameras_.size());
    for (std::size_t i = 0; i < cameras_.size(); ++i) {
        const Camera& camera = cameras_[i];
        const auto range = std::ranges::upper_bound(*camera.footage, start, {}, &FrameRange::end);
        if (range == camera.footage->end() || range->start > start) {
            choice.mainHasFootage = choice.mainHasFootage && i != 0;
            continue;
        }
        const auto before = camera.wait > 0 && i != onScreen ? lastShotEnd(camera, position) : std::nullopt;
        if (!before || camera.wait <= start - *before)
            eligible.push_back(i);
        else
            choice.waiting.push_back({i, *before + camera.wait});
    }
    const bool one = eligible.size() == 1;
    if (onScreen != 0 && !eligible.empty() && eligible.front() == 0) {
        eligible.resize(1);
        choice.kind = Choice::Kind::backToMain;
    } else if (eligible.empty() || (one && eligible.front() == onScreen)) {
        choice.kind = Choice::Kind::stays;
    } else {
        std::erase(eligible, onScreen);
        choice.kind = Choice::Kind::drawn;
    }
    if (one && choice.waiting.empty())
        choice.kind = Choice::Kind::onlyFootage;
    if (std::ranges::find(choice.cameras, cutCameras_[position]) == choice.cameras.end())
        return {};
    return choice;
}

std::string ShotReasons::begins(std::size_t position) const
{
    const Choice choice = this->choice(position);
    switch (choice.kind) {
    case Choice::Kind::none:
        return "";
    case Choice::Kind::opening:
        return "Opening shot.";
    case Choice::Kind::closing:
        return "Closing shot.";
    case Choice::Kind::section: {
        const std::string& section = settings_.sections[choice.section].name;
        return section.empty() ? "Fixed section." : "Fixed section " + section + ".";
    }
    case Choice::Kind::onlyFootage:
        return "Only " + cameras_[choice.cameras.front()].name + " has footage.";
    case Choice::Kind::backToMain:
        return position == 0 ? "The edit begins on the main camera." : "Back to the main camera.";
    case Choice::Kind::stays:
    case Choice::Kind::drawn:
        break;
    }
    std::string text;
    text.reserve(2 * longestName);
    if (choice.kind == Choice::Kind::stays)
        text += "Stays on " + cameras_[choice.cameras.front()].name;
    else
        addWeighted(text, choice);
    addWaits(text, choice);
    text += '.';
    return text;
}

std::string ShotReasons::ends(std::size_t position) const
{
    if (auto reason = shotEndReason(engine_, cuts_, marks_, position))
        return *reason;
    return frame_ && cutCameras_[position] != noCamera ? "Ends after the length that was drawn." : "";
}

/// "Drawn from Choir (5) and Balcony (8)".
void ShotReasons::addWeighted(std::string& text, const Choice& choice) const
{
    if (choice.cameras.size() == 1) {
        text += "Only " + cameras_[choice.cameras.front()].name + " could follow";
        return;
    }
    constexpr std::size_t most = 20;
    text += "Drawn from ";
    for (std::size_t i = 0; i < std::min(most, choice.cameras.size()); ++i) {
        text += i == 0 ? "" : i + 1 == choice.cameras.size() ? " and " : ", ";
        text += cameras_[choice.cameras[i]].weighted;
    }
    if (choice.cameras.size() > most)
        text += " and " + std::to_string(choice.cameras.size() - most) + " more";
}

/// "; Pulpit waits until 00:07:12:00", and that the main camera has no footage.
void ShotReasons::addWaits(std::string& text, const Choice& choice) const
{
    constexpr std::size_t most = 3;
    text += choice.mainHasFootage ? "" : "; the main camera has no footage";
    for (std::size_t i = 0; i < std::min(most, choice.waiting.size()); ++i) {
        text += "; ";
        text += cameras_[choice.waiting[i].camera].name;
        text += " waits until ";
        text += timecodeLabel(engine_, choice.waiting[i].until);
    }
    if (choice.waiting.size() > most)
        text += "; " + std::to_string(choice.waiting.size() - most) + " more wait";
}

} // namespace corvane
