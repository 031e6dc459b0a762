#pragma once

#include "help/manual.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Whether the query, without blanks at its ends, stands in what people read of the topic: title, summary, texts,
/// items and titles of links, joined by blanks. Case and accents do not count. An empty query is in every topic.
[[nodiscard]] bool topicMatches(const CorvaneManual::Section& section, std::string_view query);

/// What a help window remembers.
struct HelpTopics {
    std::string query;
    std::optional<std::string> selectedID = "quick-start";
    bool operator==(const HelpTopics&) const = default;
};

/// What a help window shows of a manual. It points into the manual.
struct HelpTopicList {
    std::vector<const CorvaneManual::Section*> topics; ///< those that match, in the manual's order
    const CorvaneManual::Section* shown = nullptr;     ///< the selected one, or else the first; none when none matches
    std::string countLine;
};

[[nodiscard]] HelpTopicList listTopics(const CorvaneManual& manual, const HelpTopics& state);
HelpTopicList listTopics(const CorvaneManual&& manual, const HelpTopics& state) = delete;

} // namespace corvane
