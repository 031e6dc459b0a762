#include "analysis/shot_reasons.h"

#include "analysis/names.h"
#include "base/numbers.h"
#include "engine/setting_limits.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

Frames endOf(const Cut& cut)
{
    return cut.start + cut.duration;
}

double valueFor(const std::map<std::string, double, std::less<>>& values, std::string_view camera, double absent)
{
    const auto found = values.find(camera);
    return found == values.end() ? absent : found->second;
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
    for (const FixedCameraSection& section : marks.sections) {
        if (section.end == end && section.angle == cut.angle)
            return "The fixed section ends.";
    }
    for (const FixedCameraSection& section : marks.sections) {
        if (section.start == end)
            return "A fixed section begins.";
    }
    if (marks.closing && marks.closing->start == end)
        return "The closing shot begins.";
    const auto& ranges = engine.videoRanges(cut.angle);
    if (std::ranges::find(ranges, end, &FrameRange::end) != ranges.end())
        return "The camera's footage ends.";
    return std::nullopt;
}

ShotReasons::ShotReasons(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings, const std::vector<Cut>& cuts)
    : engine_(engine), settings_(settings), cuts_(cuts), marks_(editMarks(engine, settings))
{
    for (const ImportedAngle& angle : project.angles)
        names_.emplace(angle.id, angleName(project, angle.id));
    try {
        frame_ = validateInputs(engine, generationInputs(project, engine, settings));
    } catch (const FinalCutImportError&) {
        return;
    }
    const auto add = [&](std::string_view id) {
        const auto wait = std::ceil(engine.frames(valueFor(settings.returnTimes, id, 0)));
        cameras_.push_back({id, wholeFrames(wait), {}});
    };
    add(settings.mainCamera);
    for (const std::string& camera : includedOtherCameras(project, engine, settings))
        add(*settings.otherCameras.find(camera));
    std::map<std::string_view, std::vector<std::size_t>*> shots;
    for (Camera& camera : cameras_)
        shots.emplace(camera.id, &camera.shots);
    for (std::size_t position = 0; position < cuts.size(); ++position) {
        if (const auto found = shots.find(cuts[position].angle); found != shots.end())
            found->second->push_back(position);
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
    const auto section = std::ranges::find(marks_.sections, cut.start, &FixedCameraSection::start);
    if (choice.kind == Choice::Kind::none && section != marks_.sections.end()) {
        choice.kind = Choice::Kind::section;
        choice.section = static_cast<std::size_t>(section - marks_.sections.begin());
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
    const Cut& cut = cuts_[position];
    const std::string_view onScreen = position == 0 ? std::string_view() : std::string_view(cuts_[position - 1].angle);
    const std::string_view main = cameras_.front().id;
    std::vector<std::string_view> eligible;
    for (const Camera& camera : cameras_) {
        if (!hasFootage(engine_, camera.id, cut.start, cut.start + 1)) {
            choice.mainHasFootage = choice.mainHasFootage && camera.id != main;
            continue;
        }
        const auto before = lastShotEnd(camera, position);
        const bool isBack = !before || camera.wait <= cut.start - *before;
        if (isBack || (position > 0 && camera.id == onScreen))
            eligible.push_back(camera.id);
        else
            choice.waiting.push_back({camera.id, *before + camera.wait});
    }
    const bool mainIsDue = position == 0 || onScreen != main;
    if (mainIsDue && !eligible.empty() && eligible.front() == main) {
        choice.cameras = {main};
        choice.kind = Choice::Kind::backToMain;
    } else {
        const auto isOther = [&](std::string_view id) { return id != main && (position == 0 || id != onScreen); };
        std::ranges::copy_if(eligible, std::back_inserter(choice.cameras), isOther);
        choice.kind = choice.cameras.empty() ? Choice::Kind::stays : Choice::Kind::drawn;
        if (choice.cameras.empty())
            choice.cameras = eligible;
    }
    if (eligible.size() == 1 && choice.waiting.empty())
        choice.kind = Choice::Kind::onlyFootage;
    if (std::ranges::find(choice.cameras, cut.angle) == choice.cameras.end())
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
        return "Only " + name(choice.cameras.front()) + " has footage.";
    case Choice::Kind::backToMain:
        return position == 0 ? "The edit begins on the main camera." : "Back to the main camera.";
    case Choice::Kind::stays:
        return "Stays on " + name(choice.cameras.front()) + waits(choice) + ".";
    case Choice::Kind::drawn:
        break;
    }
    return weighted(choice) + waits(choice) + ".";
}

std::string ShotReasons::ends(std::size_t position) const
{
    if (auto reason = shotEndReason(engine_, cuts_, marks_, position))
        return *reason;
    return choice(position).kind == Choice::Kind::none ? "" : "Ends after the length that was drawn.";
}

std::string ShotReasons::name(std::string_view camera) const
{
    const auto found = names_.find(camera);
    return found == names_.end() ? std::string(camera) : found->second;
}

/// "Drawn from Choir (5) and Balcony (8)".
std::string ShotReasons::weighted(const Choice& choice) const
{
    if (choice.cameras.size() == 1)
        return "Only " + name(choice.cameras.front()) + " could follow";
    std::string text = "Drawn from ";
    for (std::size_t i = 0; i < choice.cameras.size(); ++i) {
        text += i == 0 ? "" : i + 1 == choice.cameras.size() ? " and " : ", ";
        text += name(choice.cameras[i]);
        text += " (";
        text += shortNumber(valueFor(settings_.frequencies, choice.cameras[i], usualFrequency));
        text += ')';
    }
    return text;
}

/// "; Pulpit waits until 00:07:12:00", and that the main camera has no footage.
std::string ShotReasons::waits(const Choice& choice) const
{
    constexpr std::size_t most = 3;
    std::string text = choice.mainHasFootage ? "" : "; the main camera has no footage";
    for (std::size_t i = 0; i < std::min(most, choice.waiting.size()); ++i) {
        text += "; ";
        text += name(choice.waiting[i].camera);
        text += " waits until ";
        text += timecodeLabel(engine_, choice.waiting[i].until);
    }
    if (choice.waiting.size() > most)
        text += "; " + std::to_string(choice.waiting.size() - most) + " more wait";
    return text;
}

} // namespace corvane
