#pragma once

#include "engine/edit_settings.h"
#include "export/written_size.h"
#include "import/cut_engine.h"
#include "xml/document.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// True for the elements that are distributed among the clips: connected items and annotations.
[[nodiscard]] bool isSharedOut(std::string_view elementName);

/// Distributes the connected items, markers, keywords and ratings of the multicam clip among the clips. A connected
/// item goes to the clip that contains its offset, a point to the clip in which it is, and a range, trimmed, to every
/// clip that it overlaps. Each element is read and converted to text once; each clip refers to the texts that it
/// needs.
///
/// A connected item belongs to a cut, and a cut is identified by its id, not by its position. Ids repeat only in a cut
/// list from a file that was changed by hand; then every clip with the id of the item's cut gets the item.
class ClipAnnotations {
public:
    /// Refuses times that cannot be read: first those of connected items, then all others, each in document order. Adds
    /// what the clips repeat to `size`.
    ClipAnnotations(const CutEngine& engine, const std::vector<Cut>& cuts, WrittenSize& size);

    /// Appends the elements that belong to the clip of cut number `clip`.
    void append(std::string& out, std::size_t clip) const;

private:
    struct Text {
        std::string whole;               ///< as in the source
        std::string openTag;             ///< without times and ">"
        std::string rest;                ///< from the end of the start tag on
        std::optional<FrameRange> range; ///< in source frames, trimmed for each clip; none if `whole` is used
    };
    [[nodiscard]] static Text rangeText(xml::Element annotation, FrameRange range);

    void addConnectedItems();
    void addAnnotations();
    void placeConnectedItem(xml::Element item, double offset);
    void placeRange(xml::Element annotation, FrameRange range);
    void placePoint(xml::Element annotation, Frames at);
    template <class Clips>
    void place(xml::Element item, Text text, const Clips& clips);
    [[nodiscard]] std::size_t clipAt(Frames sourceFrame) const;

    const CutEngine& engine_;
    const std::vector<Cut>& cuts_;
    WrittenSize& size_;
    std::vector<std::size_t> byId_; ///< the clips, sorted by their cuts' ids
    std::vector<Text> texts_;
    std::vector<std::vector<std::uint32_t>> clips_; ///< for each clip, indices into texts_
};

} // namespace corvane
