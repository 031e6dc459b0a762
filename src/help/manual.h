#pragma once

#include "platform/resources.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The user manual that comes with the program.
struct CorvaneManual {
    struct LinkItem {
        std::string title;
        std::string url; ///< absolute
        bool operator==(const LinkItem&) const = default;
    };

    /// A part of a topic. Its kind decides how it is shown (topic_page.h) and which other members are used.
    struct Block {
        std::string kind;
        std::optional<std::string> text;
        std::optional<std::vector<std::string>> items;
        std::optional<std::vector<LinkItem>> links;
        bool operator==(const Block&) const = default;
    };

    /// A topic.
    struct Section {
        std::string id; ///< unique within the manual
        std::string title;
        std::string summary; ///< one line
        std::vector<Block> blocks;
        bool operator==(const Section&) const = default;
    };

    std::string title;
    std::string description; ///< one line
    std::vector<Section> sections;
    bool operator==(const CorvaneManual&) const = default;
};

/// Reads a manual from JSON. Throws PlatformError for anything that is not a manual, for repeated ids and for invalid
/// links.
[[nodiscard]] CorvaneManual decodeManual(std::string_view bytes);

/// Reads the manual from the resources. Throws PlatformError; if the manual is missing, the message says what to do.
[[nodiscard]] CorvaneManual loadManual(const Resources& resources);

} // namespace corvane
