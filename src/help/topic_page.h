#pragma once

#include "help/manual.h"

#include <string>
#include <vector>

namespace corvane {

/// How the lines of a block are formatted.
enum class BlockStyle { heading, bullets, steps, links, paragraph };

/// Any kind other than the four named ones is a paragraph.
[[nodiscard]] BlockStyle blockStyle(const CorvaneManual::Block& block);

/// A line of a topic's page.
struct PageLine {
    std::string marker; ///< "•", or the number of a step: "2."
    std::string text;
    std::string url; ///< what a click opens
    bool operator==(const PageLine&) const = default;
};

/// The lines of a block. A heading is always one line; other blocks without contents have none.
[[nodiscard]] std::vector<PageLine> pageLines(const CorvaneManual::Block& block);

} // namespace corvane
