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

/// The ranges of an edit that were not drawn but asked for. Frames of the project, half-open.
struct EditMarks {
    std::optional<FrameRange> opening;
    std::optional<FrameRange> closing;
    std::vector<FixedCameraSection> sections; ///< in list order
};
[[nodiscard]] EditMarks editMarks(const CutEngine& engine, const EditSettings& settings);

/// Why the shot ends where it does, as a sentence, where something ends or begins there: the project, a fixed section,
/// an opening or closing shot, or the camera's footage. `position` is one of the cuts.
[[nodiscard]] std::optional<std::string> shotEndReason(
    const CutEngine& engine, const std::vector<Cut>& cuts, const EditMarks& marks, std::size_t position);

/// Why each shot of an edit begins on its camera and ends where it does. Nothing was noted when the edit was drawn:
/// what could be chosen at a cut follows from the settings, the footage and the cuts before it. Of a shot in which
/// several draws came to the same camera it explains the first.
class ShotReasons {
public:
    /// All of them must outlive the object. `settings` are those that the cuts were drawn with.
    ShotReasons(
        const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
        const std::vector<Cut>& cuts);

    /// What the draw that began a shot had to choose from.
    struct Choice {
        enum class Kind { none, opening, closing, section, onlyFootage, backToMain, drawn, stays };
        struct Waiting {
            std::string_view camera;
            Frames until = 0;
        };
        Kind kind = Kind::none;                ///< none: these settings cannot have drawn the shot
        std::size_t section = 0;               ///< place in the settings' list
        std::vector<std::string_view> cameras; ///< those that could be drawn; empty for what was placed
        std::vector<Waiting> waiting;          ///< with footage, but not back yet
        bool mainHasFootage = true;
    };
    [[nodiscard]] Choice choice(std::size_t position) const;

    /// "Drawn from Choir (5) and Balcony (8); Pulpit waits until 00:07:12:00."; empty where that cannot be told.
    [[nodiscard]] std::string begins(std::size_t position) const;
    /// "The camera's footage ends."; empty where that cannot be told.
    [[nodiscard]] std::string ends(std::size_t position) const;

private:
    struct Camera {
        std::string_view id;
        Frames wait = 0;
        std::vector<std::size_t> shots; ///< the cuts on it
    };
    [[nodiscard]] std::optional<Choice> placed(std::size_t position) const;
    [[nodiscard]] std::optional<Frames> lastShotEnd(const Camera& camera, std::size_t position) const;
    [[nodiscard]] std::string name(std::string_view camera) const;
    [[nodiscard]] std::string weighted(const Choice& choice) const;
    [[nodiscard]] std::string waits(const Choice& choice) const;

    const CutEngine& engine_;
    const EditSettings& settings_;
    const std::vector<Cut>& cuts_;
    EditMarks marks_;
    std::optional<EditFrame> frame_; ///< none for settings that no edit can be drawn with
    std::vector<Camera> cameras_;    ///< the main camera first
    std::map<std::string, std::string, std::less<>> names_;
};

} // namespace corvane
