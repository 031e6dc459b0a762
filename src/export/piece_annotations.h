#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "xml/document.h"

#include <cstddef>
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
    PieceAnnotations(const CutEngine& engine, const std::vector<Cut>& cuts);

    /// Appends what belongs to the piece of cut number `piece`.
    void append(std::string& out, std::size_t piece) const;

private:
    struct Text {
        std::string whole;   ///< as it stands in the source
        std::string openTag; ///< without times and ">"
        std::string rest;    ///< from the end of the start tag on
    };
    [[nodiscard]] static Text rangeText(xml::Element annotation);
    struct Placement {
        std::size_t text = 0;
        std::optional<FrameRange> trimmedTo; ///< in source frames; none: unchanged
    };

    void addConnectedItems();
    void addAnnotations();
    void placeConnectedItem(double offset, std::size_t text);
    void placeRange(FrameRange range, std::size_t text);
    void placePoint(Frames at, std::size_t text);
    [[nodiscard]] std::size_t pieceAt(Frames sourceFrame) const;

    const CutEngine& engine_;
    const std::vector<Cut>& cuts_;
    std::vector<std::size_t> byId_; ///< the pieces, sorted by their cuts' ids
    std::vector<Text> texts_;
    std::vector<std::vector<Placement>> pieces_;
};

} // namespace corvane
