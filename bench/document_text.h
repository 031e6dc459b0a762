#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::bench {

/// "r12": a name and its number.
[[nodiscard]] std::string numbered(std::string_view name, std::size_t number);

/// FCPXML as it is written, element by element, each on a line of its own and indented by four blanks a level.
/// Nothing is escaped: the generators write no character that would need it.
class DocumentText {
public:
    struct Attribute {
        std::string_view name;
        std::string value;
    };
    using Attributes = std::initializer_list<Attribute>;

    /// `level`: that of the first element.
    explicit DocumentText(std::size_t level = 0) : level_(level) {}

    /// The whole document before its root.
    void prologue();
    void open(std::string_view name, Attributes attributes = {});
    /// Ends the element that was opened last.
    void close();
    /// An element without children.
    void element(std::string_view name, Attributes attributes = {});
    /// An element that holds nothing but `content`.
    void element(std::string_view name, Attributes attributes, std::string_view content);
    /// Elements that were written apart, at the level they come to stand on.
    void append(std::string_view elements) { text_ += elements; }

    [[nodiscard]] std::size_t size() const { return text_.size(); }
    [[nodiscard]] const std::string& text() const { return text_; }

private:
    void startTag(std::string_view name, Attributes attributes);

    std::string text_;
    std::size_t level_;
    std::vector<std::string> open_;
};

} // namespace corvane::bench
