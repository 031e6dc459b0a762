#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::bench {

/// A name with its number, such as "r12".
[[nodiscard]] std::string numbered(std::string_view name, std::size_t number);

/// Writes FCPXML element by element, each on its own line and indented by four spaces per level. Nothing is escaped,
/// because the generators write no character that would need it.
class DocumentText {
public:
    struct Attribute {
        std::string_view name;
        std::string value;
    };
    using Attributes = std::initializer_list<Attribute>;

    /// `level` is the level of the first element.
    explicit DocumentText(std::size_t level = 0) : level_(level) {}

    /// Writes everything before the root element.
    void prologue();
    void open(std::string_view name, Attributes attributes = {});
    /// Closes the element that was opened last.
    void close();
    /// Writes an element without children.
    void element(std::string_view name, Attributes attributes = {});
    /// Writes an element that contains only `content`.
    void element(std::string_view name, Attributes attributes, std::string_view content);
    /// Appends elements that were written separately, at the same level.
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
