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

/// True for the elements that are shared out: connected items and annotations.
[[nodiscard]] bool isSharedOut(std::string_view elementName);

/// Shares the connected items, markers, keywords and ratings of the multicam clip out to the pieces. A connected item
/// goes to the piece that holds its offset, a point to the piece that it lies in, a range, trimmed, to every piece
/// that it touches. Each element is read and written once, and each piece knows its own.
class PieceAnnotations {
public:
    /// Refuses times that cannot be read: connected items first, then the others, each in document order.
    /// Adds what they repeat to `size`.
    PieceAnnotations(const CutEngine& engine, const std::vector<Cut>& cuts, WrittenSize& size);

    /// Appends what belongs to the piece of cut number `piece`.
    void append(std::string& out, std::size_t piece) const;

private:
    struct Text {
        std::string whole;               ///< as it stands in the source
        std::string openTag;             ///< without times and ">"
        std::string rest;                ///< from the end of the start tag on
        std::optional<FrameRange> range; ///< in source frames, for each piece to trim; none: it has `whole`
    };
    [[nodiscard]] static Text rangeText(xml::Element annotation, FrameRange range);

    void addConnectedItems();
    void addAnnotations();
    void placeConnectedItem(xml::Element item, double offset);
    void placeRange(xml::Element annotation, FrameRange range);
    void placePoint(xml::Element annotation, Frames at);
    template <class Pieces>
    void place(xml::Element item, Text text, const Pieces& pieces);
    [[nodiscard]] std::size_t pieceAt(Frames sourceFrame) const;

    const CutEngine& engine_;
    const std::vector<Cut>& cuts_;
    WrittenSize& size_;
    std::vector<std::size_t> byId_; ///< the pieces, sorted by their cuts' ids
    std::vector<Text> texts_;
    std::vector<std::vector<std::uint32_t>> pieces_; ///< numbers of texts_
};

} // namespace corvane
