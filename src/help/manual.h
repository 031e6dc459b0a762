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

    /// A piece of a topic. Its kind says how it is shown (topic_page.h) and which of the other members that uses.
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

/// Reads a manual from JSON. Fails with PlatformError on anything that is no manual, on ids that occur twice and on
/// links that lead nowhere.
[[nodiscard]] CorvaneManual decodeManual(std::string_view bytes);

/// Reads the manual among the resources. Fails with PlatformError: where it is missing, in words that tell the user
/// what to do.
[[nodiscard]] CorvaneManual loadManual(const Resources& resources);

} // namespace corvane
