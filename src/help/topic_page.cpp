#include "help/topic_page.h"

#include <array>
#include <string_view>
#include <utility>

namespace corvane {

BlockStyle blockStyle(const CorvaneManual::Block& block)
{
    static constexpr std::array<std::pair<std::string_view, BlockStyle>, 4> named = {{
        {"heading", BlockStyle::heading},
        {"bullets", BlockStyle::bullets},
        {"steps", BlockStyle::steps},
        {"links", BlockStyle::links},
    }};
    for (const auto& [kind, style] : named) {
        if (block.kind == kind)
            return style;
    }
    return BlockStyle::paragraph;
}

std::vector<PageLine> pageLines(const CorvaneManual::Block& block)
{
    std::vector<PageLine> lines;
    switch (blockStyle(block)) {
    case BlockStyle::heading:
        lines.push_back({.marker = "", .text = block.text.value_or(""), .url = ""});
        break;
    case BlockStyle::bullets:
        for (const std::string& item : block.items.value_or(std::vector<std::string>()))
            lines.push_back({.marker = "•", .text = item, .url = ""});
        break;
    case BlockStyle::steps:
        for (const std::string& item : block.items.value_or(std::vector<std::string>()))
            lines.push_back({.marker = std::to_string(lines.size() + 1) + ".", .text = item, .url = ""});
        break;
    case BlockStyle::links:
        for (const auto& [title, url] : block.links.value_or(std::vector<CorvaneManual::LinkItem>()))
            lines.push_back({.marker = "", .text = title, .url = url});
        break;
    case BlockStyle::paragraph:
        if (block.text)
            lines.push_back({.marker = "", .text = *block.text, .url = ""});
        break;
    }
    return lines;
}

} // namespace corvane
