#pragma once

#include <string_view>

/// The texts of a help window other than the manual.
namespace corvane::help_texts {

inline constexpr std::string_view title = "Corvane Help";
inline constexpr std::string_view tagLine = "Your first pass. Your rules.";
inline constexpr std::string_view close = "Close";

inline constexpr std::string_view searchPlaceholder = "Search the manual";
inline constexpr std::string_view searchHelp = "Search help topics and their contents";
inline constexpr std::string_view allTopics = " topics · Available offline"; ///< after their number
inline constexpr std::string_view matchingTopics = " matching topics";       ///< after their number

inline constexpr std::string_view nothingMatches = "No matching topics";
inline constexpr std::string_view nothingMatchesHint = "Try a word such as audio, frequency, timecode or export.";
inline constexpr std::string_view showAllTopics = "Show all topics";

inline constexpr std::string_view notOpened = "Help could not be opened";
inline constexpr std::string_view visitWebsite = "Visit the Corvane website"; ///< leads to product::website
} // namespace corvane::help_texts
