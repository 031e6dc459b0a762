#pragma once

#include "engine/edit_settings.h"
#include "engine/generation_inputs.h"
#include "engine/validation.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The ranges of an edit that the user fixed rather than left to chance. Half-open, in project frames.
struct EditMarks {
    std::optional<FrameRange> opening;
    std::optional<FrameRange> closing;
    std::vector<FixedCameraSection> sections;      ///< in list order
    std::map<Frames, std::size_t> sectionsByStart; ///< positions in `sections`
    std::map<Frames, std::size_t> sectionsByEnd;
};
[[nodiscard]] EditMarks editMarks(const CutEngine& engine, const EditSettings& settings);

/// Why a shot ends where it does, as a sentence, if the project, a fixed section, an opening or closing shot, or the
/// camera's footage ends or begins there. `position` must be the index of a cut.
[[nodiscard]] std::optional<std::string> shotEndReason(
    const CutEngine& engine, const std::vector<Cut>& cuts, const EditMarks& marks, std::size_t position);

/// Explains why each shot of an edit begins on its camera and ends where it does. Generating records no reasons: what
/// could be chosen at a cut follows from the settings, the footage and the earlier cuts. If several draws in a row
/// chose the same camera for a shot, the first one is explained.
class ShotReasons {
public:
    /// All arguments must outlive the object. `settings` must be those with which the cuts were generated.
    ShotReasons(
        const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
        const std::vector<Cut>& cuts);

    /// The choice at the start of a shot.
    struct Choice {
        enum class Kind { none, opening, closing, section, onlyFootage, backToMain, drawn, stays };
        struct Waiting {
            std::size_t camera = 0;
            Frames until = 0;
        };
        Kind kind = Kind::none;           ///< none: these settings cannot have led to the shot
        std::size_t section = 0;          ///< index in the settings' list
        std::vector<std::size_t> cameras; ///< the cameras that could be chosen; empty if the shot was fixed
        std::vector<Waiting> waiting;     ///< cameras with footage that must still wait
        bool mainHasFootage = true;
    };
    [[nodiscard]] Choice choice(std::size_t position) const;

    /// "Drawn from Choir (5) and Balcony (8); Pulpit waits until 00:07:12:00."; empty if the reason is unknown.
    [[nodiscard]] std::string begins(std::size_t position) const;
    /// "The camera's footage ends."; empty if the reason is unknown.
    [[nodiscard]] std::string ends(std::size_t position) const;

private:
    struct Camera {
        std::string_view id;
        std::string name;
        std::string weighted; ///< "Choir (5)"
        Frames wait = 0;
        const std::vector<FrameRange>* footage = nullptr;
        std::vector<std::size_t> shots; ///< the cuts on it
    };
    static constexpr std::size_t noCamera = static_cast<std::size_t>(-1);
    [[nodiscard]] std::optional<Choice> placed(std::size_t position) const;
    [[nodiscard]] std::optional<Frames> lastShotEnd(const Camera& camera, std::size_t position) const;
    void addWeighted(std::string& text, const Choice& choice) const;
    void addWaits(std::string& text, const Choice& choice) const;

    const CutEngine& engine_;
    const EditSettings& settings_;
    const std::vector<Cut>& cuts_;
    EditMarks marks_;
    std::optional<EditFrame> frame_;      ///< none if no edit can be generated with the settings
    std::vector<Camera> cameras_;         ///< the main camera first
    std::vector<std::size_t> cutCameras_; ///< of each cut, the position of its camera in cameras_
};

} // namespace corvane
