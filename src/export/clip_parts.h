#pragma once

#include "base/identifier.h"
#include "engine/edit_settings.h"
#include "export/written_size.h"
#include "import/cut_engine.h"
#include "xml/tree.h"

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// Appends `text` on a line of its own, indented like the contents of a clip.
void appendPart(std::string& out, std::string_view text);

/// The element with its contents, as text inside a clip.
[[nodiscard]] std::string partText(xml::Element element);

/// True for the children of the multicam clip that the clips carry over or, for mc-source, build anew.
[[nodiscard]] bool isCarriedOver(std::string_view elementName);

/// Whether a clip is at the start or end of the project; only there it keeps the audio fade of that end.
struct ClipEnds {
    bool first = false;
    bool last = false;
};

/// The parts that all clips have in common. Each is built and converted to text once, and then only copied. Only
/// tracking ids are new in every copy, because an id may occur only once in a document.
class ClipParts {
public:
    ClipParts(const CutEngine& engine, std::string_view audioAngle, IdentifierSource identifiers);

    /// Adds to `size` what the clips of these cuts repeat, except the fades of the first and the last clip.
    void addTo(WrittenSize& size, const std::vector<Cut>& cuts) const;

    /// The start tag without its times and its ">".
    [[nodiscard]] const std::string& openTag() const { return openTag_; }
    [[nodiscard]] const std::string& closeTag() const { return closeTag_; }

    /// Appends the clip settings and the angle sources of a clip that shows `angle`.
    void appendSources(std::string& out, const std::string& angle, ClipEnds ends);
    /// Appends what follows everything else.
    void appendTrailing(std::string& out) const { out += trailing_; }

private:
    enum class Mode { all, video, audio };

    /// The text of an element, with the places where new ids are inserted.
    struct Template {
        std::string text;
        std::vector<std::pair<std::size_t, std::size_t>> places; ///< offset in `text`, index of the id
        std::size_t ids = 0;
    };

    [[nodiscard]] const std::string& settings(ClipEnds ends);
    [[nodiscard]] const Template& angleSource(const std::string& angle, Mode mode, ClipEnds ends);
    [[nodiscard]] xml::Tree angleTree(std::string_view angle, Mode mode, ClipEnds ends) const;
    [[nodiscard]] Template makeAngleSource(std::string_view angle, Mode mode, ClipEnds ends) const;
    void append(std::string& out, const Template& part) const;

    xml::Element original_;
    std::string audioAngle_;
    IdentifierSource identifiers_;
    std::string openTag_;
    std::string closeTag_;
    std::string trailing_;
    std::map<std::string_view, std::vector<xml::Element>> angleSources_; ///< the mc-source elements of each angle
    std::array<std::optional<std::string>, 4> settings_;                 ///< indexed by the clip's ends
    std::map<std::pair<std::string, int>, Template> sources_;            ///< by angle, and by mode and ends
};

} // namespace corvane
