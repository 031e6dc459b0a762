#include "engine/cut_generation.h"

#include "base/numbers.h"
#include "engine/setting_limits.h"
#include "engine/validation.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace corvane {

namespace {

/// More than eleven days of one-second shots. A document of a few lines can declare a project of a thousand years.
constexpr std::size_t mostCuts = 1'000'000;

/// How long the shots of the main camera, or of the other cameras, should be.
struct ShotLengths {
    double nominal = 0; ///< frames; a draw varies it from 75 % to 125 %
    bool ranged = false;
    Frames shortest = 0;
    Frames longest = 0;
    double exponent = 1; ///< the mean of u^exponent is where in the range the lengths should average
};

ShotLengths shotLengths(
    const CutEngine& engine, double averageShot, double share, const std::optional<ShotLengthRange>& range,
    const std::optional<ShotLengthRange>& opposite)
{
    ShotLengths lengths;
    lengths.nominal = engine.frames(2 * averageShot * share);
    if (!range)
        return lengths;
    lengths.ranged = true;
    lengths.shortest = wholeFrames(std::ceil(engine.frames(range->lower)));
    lengths.longest = wholeFrames(std::floor(engine.frames(range->upper)));
    double mean = 0.5;
    const double width = range->upper - range->lower;
    if (width > 0) {
        // The other side's typical shot, scaled so that this side gets its share.
        const double target = opposite ? (opposite->lower + opposite->upper) / 2 : averageShot;
        const double wanted = (target * share / (1 - share) - range->lower) / width;
        mean = std::clamp(wanted, 0.1, 0.9); // keeps some variation at both ends
    }
    lengths.exponent = 1 / mean - 1;
    return lengths;
}

/// The state of one call of generateCuts: its position in the project and the cuts that it has placed.
class Generator {
public:
    Generator(const CutEngine& engine, const GenerationInputs& inputs, const GenerationSources& sources)
        : engine_(engine), inputs_(inputs), sources_(sources), frame_(validateInputs(engine, inputs))
    {
        addCamera(inputs.mainCamera);
        for (const std::string& camera : inputs.otherCameras)
            addCamera(camera);
        const double mainShare = inputs.mainShare;
        mainLengths_ = shotLengths(engine, inputs.averageShot, mainShare, inputs.mainRange, inputs.otherRange);
        otherLengths_ = shotLengths(engine, inputs.averageShot, 1 - mainShare, inputs.otherRange, inputs.mainRange);
    }

    std::vector<Cut> run()
    {
        if (inputs_.opening)
            placeFixed(inputs_.opening->angle, frame_.openingFrames);
        while (position_ < frame_.freeEnd) {
            if (nextSection_ < frame_.fixedSections.size() && frame_.fixedSections[nextSection_].start == position_) {
                const FixedCameraSection& section = frame_.fixedSections[nextSection_++];
                placeFixed(section.angle, section.end);
            } else {
                placeFreeShot();
            }
        }
        if (inputs_.closing)
            placeFixed(inputs_.closing->angle, engine_.length);
        return std::move(cuts_);
    }

private:
    struct Camera {
        std::string id;
        const std::vector<FrameRange>* ranges = nullptr;
        std::size_t range = 0; ///< the first range that ends after the position; only moves forward
        double weight = usualFrequency;
        Frames returnTime = 0;
        std::optional<Frames> lastShotEnd;
    };
    using CameraList = std::vector<Camera*>;
    enum class Growth { no, yes };

    void addCamera(const std::string& id)
    {
        Camera camera;
        camera.id = id;
        camera.ranges = &engine_.videoRanges(id);
        camera.weight = frequencyOf(inputs_.frequencies, id);
        camera.returnTime = wholeFrames(std::ceil(engine_.frames(returnTimeOf(inputs_.returnTimes, id))));
        cameras_.push_back(camera);
    }

    [[nodiscard]] bool isMain(const Camera& camera) const { return &camera == &cameras_.front(); }

    [[nodiscard]] bool isOnScreen(const Camera& camera) const { return &camera == onScreen_; }

    [[nodiscard]] Frames nextBoundary() const
    {
        return nextSection_ < frame_.fixedSections.size() ? frame_.fixedSections[nextSection_].start : frame_.freeEnd;
    }

    /// Fills eligible_ with the cameras that have footage at position_, reusing its memory for every shot.
    void findAvailableCameras()
    {
        eligible_.clear();
        for (Camera& camera : cameras_) {
            const auto& ranges = *camera.ranges;
            while (camera.range < ranges.size() && ranges[camera.range].end <= position_)
                ++camera.range;
            if (camera.range < ranges.size() && ranges[camera.range].start <= position_)
                eligible_.push_back(&camera);
        }
    }

    [[noreturn]] void refuseGap() const
    {
        std::optional<Frames> next;
        for (const Camera& camera : cameras_) {
            const auto later = std::ranges::upper_bound(*camera.ranges, position_, {}, &FrameRange::start);
            if (later != camera.ranges->end())
                next = std::min(next.value_or(later->start), later->start);
        }
        throw FinalCutImportError::invalid(
            "No selected camera has video at " + fixed(engine_.seconds(position_), 2) +
            " seconds. The uncovered section lasts " +
            fixed(engine_.seconds(next.value_or(engine_.length) - position_), 2) + " seconds. " +
            (next ? "Include another camera covering this gap, or remove the uncovered section in Final Cut and "
                    "export XML again."
                  : "Trim the project to the end of the camera footage in Final Cut and export XML again, or include "
                    "another camera covering the ending."));
    }

    [[nodiscard]] bool isEligible(const Camera& camera) const
    {
        return isOnScreen(camera) || !camera.lastShotEnd || camera.returnTime <= position_ - *camera.lastShotEnd;
    }

    void findEligibleCameras()
    {
        findAvailableCameras();
        if (eligible_.empty())
            refuseGap();
        std::erase_if(eligible_, [this](const Camera* camera) { return !isEligible(*camera); });
        if (!eligible_.empty())
            return;
        throw FinalCutImportError::invalid(
            "Minimum return times prevent a camera change at " + timecodeLabel(engine_, position_) +
            ", and the current camera has no footage there. Reduce a return time or include another camera.");
    }

    /// Between which cameras the next free shot is drawn. ShotReasons::choice (analysis) explains edits by the same
    /// rules, of which isEligible and findAvailableCameras are a part: change both together.
    [[nodiscard]] const CameraList& candidates()
    {
        findEligibleCameras();
        candidates_.clear();
        if (onOtherCamera_ && isMain(*eligible_.front())) {
            candidates_.push_back(eligible_.front());
            return candidates_;
        }
        for (Camera* camera : eligible_) {
            if (!isMain(*camera) && !isOnScreen(*camera))
                candidates_.push_back(camera);
        }
        return candidates_.empty() ? eligible_ : candidates_;
    }

    [[nodiscard]] Camera& pick(const CameraList& candidates)
    {
        double total = 0;
        for (const Camera* camera : candidates)
            total += camera->weight;
        double remaining = total * std::clamp(sources_.randomNumbers(), 0.0, 1.0);
        for (Camera* camera : candidates) {
            remaining -= camera->weight;
            if (remaining < 0)
                return *camera;
        }
        return *candidates.back();
    }

    [[nodiscard]] Frames drawLength(bool mainCamera)
    {
        const ShotLengths& lengths = mainCamera ? mainLengths_ : otherLengths_;
        const double nominal = std::round((0.75 + 0.5 * sources_.randomNumbers()) * lengths.nominal);
        Frames length = std::max<Frames>(1, wholeFrames(nominal)); // drawn even if a range replaces it
        if (lengths.ranged)
            length = drawLengthInRange(lengths);
        if (mainCamera && inputs_.doubleMain && sources_.randomNumbers() < 0.25)
            length *= 2;
        return length;
    }

    [[nodiscard]] Frames drawLengthInRange(const ShotLengths& lengths)
    {
        if (lengths.longest < lengths.shortest)
            throw FinalCutImportError::invalid("The shot range must contain at least one full frame.");
        const double spread = std::pow(std::clamp(sources_.randomNumbers(), 0.0, 1.0), lengths.exponent);
        const auto width = static_cast<double>(lengths.longest - lengths.shortest);
        return lengths.shortest + wholeFrames(std::round(spread * width));
    }

    void placeFreeShot()
    {
        const Frames boundary = nextBoundary();
        Camera& camera = pick(candidates());
        const Frames byLength = position_ + drawLength(isMain(camera));
        const Frames footageEnd = (*camera.ranges)[camera.range].end;
        const Frames end = std::min({byLength, footageEnd, boundary});
        if (end <= position_)
            throw FinalCutImportError::invalid("No valid cut boundary is available.");
        place(&camera, camera.id, end, Growth::yes);
    }

    /// Places the camera from position_ to `end`. A free shot on the camera on screen extends that cut, unless the cut
    /// is the opening or a fixed section, which keep their exact lengths.
    void place(Camera* camera, const std::string& id, Frames end, Growth growth)
    {
        if (cuts_.size() == mostCuts)
            throw FinalCutImportError::invalid(
                "The rough edit would have more than 1,000,000 clips. Choose longer shots, or trim the project in "
                "Final Cut and export XML again.");
        const bool sameCamera = !cuts_.empty() && cuts_.back().angle == id;
        if (sameCamera && growth == Growth::yes && lastCutGrows_ == Growth::yes)
            cuts_.back().duration += end - position_;
        else
            cuts_.push_back({sources_.identifiers(), id, position_, end - position_});
        lastCutGrows_ = growth;
        if (camera != nullptr)
            camera->lastShotEnd = end;
        onScreen_ = camera;
        position_ = end;
        onOtherCamera_ = camera != &cameras_.front();
    }

    /// The same for a bookend or a fixed section, whose camera need not be one of the chosen cameras.
    void placeFixed(const std::string& id, Frames end)
    {
        const auto camera = std::ranges::find(cameras_, id, &Camera::id);
        place(camera == cameras_.end() ? nullptr : &*camera, id, end, Growth::no);
    }

    const CutEngine& engine_;
    const GenerationInputs& inputs_;
    const GenerationSources& sources_;
    const EditFrame frame_;
    std::vector<Camera> cameras_; ///< the main camera first, then the others in order; never moved once filled
    CameraList eligible_;
    CameraList candidates_;
    ShotLengths mainLengths_;
    ShotLengths otherLengths_;

    Frames position_ = 0;              ///< where the next shot starts
    std::size_t nextSection_ = 0;      ///< the first fixed section that has not been placed yet
    const Camera* onScreen_ = nullptr; ///< the camera of the last cut, if it is one of the chosen cameras
    bool onOtherCamera_ = true;        ///< initially true, so that the edit begins on the main camera if it can
    Growth lastCutGrows_ = Growth::no;
    std::vector<Cut> cuts_;
};

} // namespace

std::vector<Cut> generateCuts(const CutEngine& engine, const GenerationInputs& inputs, const GenerationSources& sources)
{
    return Generator(engine, inputs, sources).run();
}

} // namespace corvane
