#include "help/source_texts.h"

#include "platform/text.h"

#include <algorithm>
#include <utility>

namespace corvane::test {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isWordCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || isDigit(c);
}

/// Goes through a source token by token.
class Scanner {
public:
    explicit Scanner(std::string_view source) : rest_(source) {}

    std::vector<SourceText> texts()
    {
        while (!rest_.empty())
            step();
        endText();
        return std::move(texts_);
    }

private:
    void step()
    {
        const char c = rest_.front();
        if (std::string_view(" \t\r\n").find(c) != std::string_view::npos)
            rest_.remove_prefix(1);
        else if (rest_.starts_with("//") || rest_.starts_with("#include"))
            take(rest_.find('\n'));
        else if (rest_.starts_with("/*"))
            take(endAfter("*/", 2));
        else if (c == '"')
            add(quoted('"'));
        else if (rest_.starts_with("R\""))
            add(raw());
        else if (c == '\'')
            token(quoted('\''));
        else if (isWordCharacter(c))
            token(word());
        else
            token(take(1));
    }

    std::string_view take(std::size_t length)
    {
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    [[nodiscard]] std::size_t endAfter(std::string_view mark, std::size_t from) const
    {
        const std::size_t at = rest_.find(mark, from);
        return at == std::string_view::npos ? at : at + mark.size();
    }

    /// Numbers keep their separators: 10'000 holds no character.
    std::string_view word()
    {
        const bool number = isDigit(rest_.front());
        std::size_t length = 0;
        while (length < rest_.size() && (isWordCharacter(rest_[length]) || (number && rest_[length] == '\'')))
            ++length;
        return take(length);
    }

    std::string_view quoted(char quote)
    {
        std::size_t length = 1;
        while (length < rest_.size() && rest_[length] != quote)
            length += rest_[length] == '\\' ? 2U : 1U;
        const std::string_view inside = take(length).substr(1);
        take(1);
        return inside;
    }

    std::string_view raw()
    {
        const std::string_view delimiter = rest_.substr(2, rest_.find('(') - 2);
        take(delimiter.size() + 3);
        const std::string end = ")" + std::string(delimiter) + "\"";
        const std::string_view inside = take(rest_.find(end));
        take(end.size());
        return inside;
    }

    void add(std::string_view inside)
    {
        if (!inText_)
            text_ = {"", calls()};
        inText_ = true;
        text_.text += inside;
    }

    [[nodiscard]] std::string calls() const
    {
        std::string names;
        for (std::size_t end = tokens_.size(); end >= 2 && tokens_[end - 1] == "("; end -= 2) {
            if (!isWordCharacter(tokens_[end - 2].front()))
                break;
            names.insert(0, std::string(tokens_[end - 2]) + "(");
        }
        return names;
    }

    void token(std::string_view token)
    {
        endText();
        tokens_.push_back(token);
    }

    void endText()
    {
        if (!std::exchange(inText_, false))
            return;
        texts_.push_back(text_);
        tokens_.emplace_back("\"\"");
    }

    std::string_view rest_;
    std::vector<std::string_view> tokens_;
    SourceText text_;
    bool inText_ = false;
    std::vector<SourceText> texts_;
};

} // namespace

std::vector<SourceText> textsOf(std::string_view source)
{
    return Scanner(source).texts();
}

std::vector<std::string> piecesOf(const SourceText& text)
{
    const bool translated = text.calls.ends_with("tr(");
    std::vector<std::string> pieces(1);
    for (std::size_t at = 0; at < text.text.size(); ++at) {
        const char c = text.text[at];
        const char next = at + 1 < text.text.size() ? text.text[at + 1] : ' ';
        if (c == '\\' && (next == '"' || next == '\'' || next == '\\')) {
            pieces.back() += next;
            ++at;
        } else if (c == '\\' || (translated && c == '%' && isDigit(next))) {
            pieces.emplace_back();
            ++at;
        } else if (!translated || c != '&') {
            pieces.back() += c;
        }
    }
    for (std::string& piece : pieces)
        piece = std::string(trimmed(piece));
    std::erase(pieces, "");
    return pieces;
}

} // namespace corvane::test
