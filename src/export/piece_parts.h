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

/// Appends `text` on a line of its own, indented as the contents of a piece are.
void appendPart(std::string& out, std::string_view text);

/// The element and everything in it, as it stands inside a piece.
[[nodiscard]] std::string partText(xml::Element element);

/// True for the children of the multicam clip that pieces take over, or make anew (mc-source).
[[nodiscard]] bool isCarriedOver(std::string_view elementName);

/// Which ends of the project a piece touches: only there are the audio fades of that end kept.
struct PieceEnds {
    bool first = false;
    bool last = false;
};

/// The parts of the pieces that repeat from piece to piece. Each is built and written once and then only copied;
/// tracking ids alone are new in every copy, because an id may occur only once in a document.
class PieceParts {
public:
    PieceParts(const CutEngine& engine, std::string_view audioAngle, IdentifierSource identifiers);

    /// Adds what the pieces of these cuts repeat to `size`, but for the fades that the first and the last have.
    void addTo(WrittenSize& size, const std::vector<Cut>& cuts) const;

    /// The start tag but for its times and its ">".
    [[nodiscard]] const std::string& openTag() const { return openTag_; }
    [[nodiscard]] const std::string& closeTag() const { return closeTag_; }

    /// Clip settings and the angle sources of a piece that shows `angle`.
    void appendSources(std::string& out, const std::string& angle, PieceEnds ends);
    /// What stands after everything else.
    void appendTrailing(std::string& out) const { out += trailing_; }

private:
    enum class Mode { all, video, audio };

    /// A written element with places for new ids.
    struct Template {
        std::string text;
        std::vector<std::pair<std::size_t, std::size_t>> places; ///< offset in `text`, number of the id
        std::size_t ids = 0;
    };

    [[nodiscard]] const std::string& settings(PieceEnds ends);
    [[nodiscard]] const Template& angleSource(const std::string& angle, Mode mode, PieceEnds ends);
    [[nodiscard]] xml::Tree angleTree(std::string_view angle, Mode mode, PieceEnds ends) const;
    [[nodiscard]] Template makeAngleSource(std::string_view angle, Mode mode, PieceEnds ends) const;
    void append(std::string& out, const Template& part) const;

    xml::Element original_;
    std::string audioAngle_;
    IdentifierSource identifiers_;
    std::string openTag_;
    std::string closeTag_;
    std::string trailing_;
    std::map<std::string_view, std::vector<xml::Element>> angleSources_; ///< the mc-source elements of each angle
    std::array<std::optional<std::string>, 4> settings_;                 ///< by ends
    std::map<std::pair<std::string, int>, Template> sources_;            ///< by angle and by mode and ends
};

} // namespace corvane
