#pragma once

#include <compare>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

/// The rules of text that Unicode decides. Texts are UTF-8; malformed bytes count as one character each.
namespace corvane {

/// True for well-formed UTF-8.
[[nodiscard]] bool isText(std::string_view bytes);

/// The text without the white space and line breaks at both ends (Unicode's White_Space).
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The first `count` user-perceived characters (extended grapheme clusters), or the whole text when it has no more.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// As many whole user-perceived characters from the start as fit into `bytes` bytes.
[[nodiscard]] std::string_view charactersWithin(std::string_view text, std::size_t bytes);

/// Code points of a text that are drawn at most: a sentence may hold a name of any length.
constexpr std::size_t longestShown = 600;

/// The text; of one with more than `most` code points the beginning and the end with "…" between them, `most` in all.
/// User-perceived characters stay whole, unless one alone is longer than that.
[[nodiscard]] std::string withoutMiddle(std::string_view text, std::size_t most = longestShown);

/// The text with a mark for each control that would break its line or turn the direction of what stands around it: ↵
/// for the end of a line, ⇥ for a tab, ⇉, ⇇ and ⇄ for what turns text to the right, to the left and back, � for the
/// others and for what toolkits keep for themselves (noncharacters, U+FFFC). One character stands for one and nothing
/// is added.
[[nodiscard]] std::string withVisibleControls(std::string_view text);

/// What is drawn of a text that comes from outside: both of the above.
[[nodiscard]] std::string shownText(std::string_view text);

/// The text in Unicode's lower case, of no language: "İ" becomes an i with a dot above, whoever is asking.
[[nodiscard]] std::string lowerCased(std::string_view text);

/// How people sort names: by the letters of their language, case does not count, accents little, runs of digits as
/// numbers, blanks as characters. Only the same text is equal, so that a sort comes out the same on every run.
class NameOrder {
public:
    /// `language` as "sv" or "de_AT"; empty for an order of no language. The usual one is that of the user's account.
    explicit NameOrder(const std::string& language = usersLanguage());
    NameOrder(const NameOrder&) = delete;
    NameOrder& operator=(const NameOrder&) = delete;
    ~NameOrder();

    [[nodiscard]] std::strong_ordering operator()(std::string_view a, std::string_view b) const;

    /// Empty where the account has none ("C" and "POSIX").
    [[nodiscard]] static std::string usersLanguage();

private:
    struct Collator;
    std::unique_ptr<const Collator> collator_;
};

/// How people search: the query stands in the text, case and accents aside on both sides. Blanks count as written; an
/// empty query is in every text.
[[nodiscard]] bool containsStandard(std::string_view text, std::string_view query);

} // namespace corvane
