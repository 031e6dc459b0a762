#include "platform/json_tree.h"

#include "platform/error.h"
#include "platform/numbers.h"
#include "platform/text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace corvane {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Stands for itself in a text.
bool isPlain(char c)
{
    return c != '"' && c != '\\' && static_cast<unsigned char>(c) >= 0x20;
}

/// Written by hand, because sessions hold a document of many megabytes as one text and edits as millions of small
/// values: this takes whole stretches at a time, makes one row of them, and never looks at the user's locale.
class JsonParser {
public:
    explicit JsonParser(JsonTree& tree) : tree_(tree), bytes_(tree.bytes) {}

    void parse()
    {
        if (bytes_.starts_with("\xef\xbb\xbf"))
            at_ = 3;
        parseValue(0, nullptr);
        skipBlanks();
        if (at_ < bytes_.size())
            fail("something follows the end of the data");
    }

private:
    [[noreturn]] void fail(std::string_view complaint) const
    {
        const std::string_view before = bytes_.substr(0, at_);
        const std::size_t column = at_ - (before.rfind('\n') + 1); // npos + 1 is 0
        throw PlatformError(
            tree_.subject + " cannot be read: line " + std::to_string(std::ranges::count(before, '\n') + 1) +
            ", column " + std::to_string(column + 1) + ": " + std::string(complaint) + ".");
    }

    /// The next byte; 0, which no rule accepts, at the end.
    [[nodiscard]] char next() const { return at_ < bytes_.size() ? bytes_[at_] : '\0'; }

    bool skip(char c)
    {
        const bool isThere = next() == c;
        at_ += isThere ? 1 : 0;
        return isThere;
    }

    bool skip(std::string_view word)
    {
        const bool isThere = bytes_.substr(at_).starts_with(word);
        at_ += isThere ? word.size() : 0;
        return isThere;
    }

    void skipBlanks()
    {
        while (isBlank(next()))
            ++at_;
    }

    template <class Value>
    void add(Value value, const std::string* name)
    {
        tree_.nodes.push_back({value, tree_.nodes.size() + 1, name});
    }

    void parseValue(int depth, const std::string* name)
    {
        skipBlanks();
        const char c = next();
        if (c == '{' || c == '[')
            parseInside(depth, name, c);
        else if (c == '"')
            add(parseText(), name);
        else if (c == '-' || isDigit(c))
            parseNumber(name);
        else if (skip("true"))
            add(true, name);
        else if (skip("false"))
            add(false, name);
        else if (skip("null"))
            add(std::monostate(), name);
        else
            fail(at_ == bytes_.size() ? "the data ends too early" : "a value is missing");
    }

    void parseInside(int depth, const std::string* name, char opening)
    {
        constexpr int deepest = 256;
        if (depth == deepest)
            fail("lists and objects are nested too deeply");
        const std::size_t node = tree_.nodes.size();
        ++at_;
        if (opening == '{') {
            add(JsonObject(), name);
            parseMembers(depth + 1);
        } else {
            add(JsonList(), name);
            const std::size_t count = parseItems(depth + 1);
            tree_.nodes[node].value = JsonList{count};
        }
        tree_.nodes[node].end = tree_.nodes.size();
    }

    std::size_t parseItems(int depth)
    {
        skipBlanks();
        if (skip(']'))
            return 0;
        std::size_t count = 0;
        do {
            parseValue(depth, nullptr);
            ++count;
            skipBlanks();
        } while (skip(','));
        if (!skip(']'))
            fail("a comma or the end of a list is missing");
        return count;
    }

    void parseMembers(int depth)
    {
        skipBlanks();
        if (skip('}'))
            return;
        do {
            const std::string* name = parseName();
            skipBlanks();
            if (!skip(':'))
                fail("a colon is missing");
            parseValue(depth, name);
            skipBlanks();
        } while (skip(','));
        if (!skip('}'))
            fail("a comma or the end of an object is missing");
    }

    const std::string* parseName()
    {
        skipBlanks();
        if (next() != '"')
            fail("a name is missing");
        const std::string_view text = parseText();
        auto known = tree_.names.find(text);
        if (known == tree_.names.end())
            known = tree_.names.emplace(text).first;
        return &*known;
    }

    void parseNumber(const std::string* name)
    {
        const std::size_t start = at_;
        skip('-');
        if (!skip('0'))
            skipDigits();
        bool isWhole = true;
        if (skip('.')) {
            skipDigits();
            isWhole = false;
        }
        if (skip('e') || skip('E')) {
            if (!skip('-'))
                skip('+');
            skipDigits();
            isWhole = false;
        }
        const std::string_view written = bytes_.substr(start, at_ - start);
        const auto whole = isWhole ? readInteger(written) : std::nullopt;
        const auto number = whole ? std::nullopt : readNumber(written);
        if (whole)
            add(*whole, name);
        else if (number)
            add(*number, name);
        else
            fail("a number does not fit into 64 bits");
    }

    void skipDigits()
    {
        if (!isDigit(next()))
            fail("a digit is missing");
        while (isDigit(next()))
            ++at_;
    }

    std::string_view parseText()
    {
        skip('"');
        std::string_view text = parsePlain();
        if (next() == '\\') {
            std::string& meant = tree_.texts.emplace_back(text);
            while (skip('\\')) {
                parseEscape(meant);
                meant += parsePlain();
            }
            text = meant;
        }
        if (!skip('"'))
            fail(at_ == bytes_.size() ? "the data ends inside a text" : "a text has a control character");
        if (!isWellFormed(text))
            fail("the text before this is not UTF-8");
        return text;
    }

    std::string_view parsePlain()
    {
        const std::string_view rest = bytes_.substr(at_);
        const auto length = static_cast<std::size_t>(std::ranges::find_if_not(rest, isPlain) - rest.begin());
        at_ += length;
        return rest.substr(0, length);
    }

    /// What follows a backslash.
    void parseEscape(std::string& text)
    {
        constexpr std::string_view letters = "\"\\/bfnrt";
        constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
        if (const std::size_t letter = letters.find(next()); letter != std::string_view::npos) {
            text += meanings[letter];
            ++at_;
        } else if (skip('u')) {
            appendCharacter(text, parseCharacterNumber());
        } else {
            fail("a text has a backslash that says nothing");
        }
    }

    /// One unit of UTF-16, or the two that stand for one character.
    char32_t parseCharacterNumber()
    {
        const char32_t first = parseHexadecimal();
        if (first < 0xD800 || first > 0xDFFF)
            return first;
        const char32_t second = first < 0xDC00 && skip("\\u") ? parseHexadecimal() : 0;
        if (second < 0xDC00 || second > 0xDFFF)
            fail("a text has half a character");
        return 0x10000 + ((first - 0xD800) << 10U) + (second - 0xDC00);
    }

    char32_t parseHexadecimal()
    {
        constexpr std::string_view digits = "0123456789abcdefABCDEF";
        char32_t value = 0;
        for (int n = 0; n < 4; ++n, ++at_) {
            const std::size_t digit = digits.find(next());
            if (digit == std::string_view::npos)
                fail("a hexadecimal digit is missing");
            value = value * 16 + static_cast<char32_t>(digit < 16 ? digit : digit - 6);
        }
        return value;
    }

    JsonTree& tree_;
    std::string_view bytes_;
    std::size_t at_ = 0;
};

} // namespace

std::unique_ptr<const JsonTree> parseJsonTree(std::string bytes, std::string_view subject)
{
    auto tree = std::make_unique<JsonTree>();
    tree->subject = subject;
    tree->bytes = std::move(bytes);
    JsonParser(*tree).parse();
    return tree;
}

} // namespace corvane
