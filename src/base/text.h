#pragma once

#include <compare>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

/// Text operations that follow Unicode's rules. Texts are UTF-8; each malformed byte counts as one character.
namespace corvane {

/// True for well-formed UTF-8.
[[nodiscard]] bool isText(std::string_view bytes);

/// The text without white space (Unicode's White_Space, which includes line breaks) at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The first `count` user-perceived characters (extended grapheme clusters), or the whole text when it has no more.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// As many whole user-perceived characters from the start as fit into `bytes` bytes.
[[nodiscard]] std::string_view charactersWithin(std::string_view text, std::size_t bytes);

/// The most code points of a text that are drawn, since a message may contain a name of any length.
constexpr std::size_t longestShown = 600;

/// The text unchanged if it has at most `most` code points; otherwise its start and end with "…" between them, `most`
/// code points in all. Does not split a user-perceived character, unless that character alone is longer.
[[nodiscard]] std::string withoutMiddle(std::string_view text, std::size_t most = longestShown);

/// The text with a mark in place of each character that would break the line or change the writing direction of the
/// text around it: ↵ for a line break, ⇥ for a tab, ⇉, ⇇ and ⇄ for characters that turn the direction to the right, to
/// the left and back, � for other control characters and for those that toolkits reserve for themselves (noncharacters,
/// U+FFFC). Each mark replaces exactly one character.
[[nodiscard]] std::string withVisibleControls(std::string_view text);

/// How a text from outside is drawn: both of the above.
[[nodiscard]] std::string shownText(std::string_view text);

/// The text in Unicode's lower case, independent of language: "İ" always becomes an i with a dot above.
[[nodiscard]] std::string lowerCased(std::string_view text);

/// Sorts names as people do: by the alphabet of their language, ignoring case, by accents only if the letters are the
/// same, digits as numbers, spaces as characters. Only identical texts are equal, so that sorting always gives the same
/// order.
class NameOrder {
public:
    /// `language` is a code such as "sv" or "de_AT", by default that of the user's account; empty for an order that
    /// suits no language in particular.
    explicit NameOrder(const std::string& language = usersLanguage());
    NameOrder(const NameOrder&) = delete;
    NameOrder& operator=(const NameOrder&) = delete;
    ~NameOrder();

    [[nodiscard]] std::strong_ordering operator()(std::string_view a, std::string_view b) const;

    /// Empty if the account has none ("C" or "POSIX").
    [[nodiscard]] static std::string usersLanguage();

private:
    struct Collator;
    std::unique_ptr<const Collator> collator_;
};

/// True if the text contains the query, ignoring case and accents in both. White space must match exactly; an empty
/// query is in every text.
[[nodiscard]] bool containsIgnoringCaseAndAccents(std::string_view text, std::string_view query);

} // namespace corvane
