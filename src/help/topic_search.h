#pragma once

#include "help/manual.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// True if the query, without white space at both ends, is in what people read of the topic: title, summary, texts,
/// items and link titles, joined by spaces. Ignores case and accents. An empty query matches every topic.
[[nodiscard]] bool topicMatches(const CorvaneManual::Section& section, std::string_view query);

/// The state of a help window.
struct HelpTopics {
    std::string query;
    std::optional<std::string> selectedID = "quick-start";
    bool operator==(const HelpTopics&) const = default;
};

/// The topics that a help window shows. The pointers point into the manual.
struct HelpTopicList {
    std::vector<const CorvaneManual::Section*> topics; ///< those that match, in the manual's order
    const CorvaneManual::Section* shown = nullptr;     ///< the selected or the first topic; null if none matches
    std::string countLine;
};

[[nodiscard]] HelpTopicList listTopics(const CorvaneManual& manual, const HelpTopics& state);
HelpTopicList listTopics(const CorvaneManual&& manual, const HelpTopics& state) = delete;

} // namespace corvane
