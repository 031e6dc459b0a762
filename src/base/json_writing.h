#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// Writes compact JSON (RFC 8259, UTF-8) from the first value to the last. There is no tree of values in between: the
/// library needs memory to destroy one, and ends the program if there is none.
class JsonWriter {
public:
    // Each of these writes one value: the document, the next item of a list, or the value of the last key.
    void null() { append("null"); }
    void value(std::integral auto number)
    {
        if constexpr (std::same_as<decltype(number), bool>)
            append(number ? "true" : "false");
        else
            append(std::to_string(number));
    }
    /// Writes the shortest text that reads as the same number. Throws PlatformError for NaN and infinity.
    void value(double number);
    /// Replaces bytes that are not UTF-8 by U+FFFD.
    void value(std::string_view text);
    /// `write` writes the items.
    void list(const auto& write) { enclose('[', write, ']'); }
    /// `write` writes the members.
    void object(const auto& write) { enclose('{', write, '}'); }

    /// The next value belongs to this key.
    void key(std::string_view name);
    void member(std::string_view name, const auto& of)
    {
        key(name);
        value(of);
    }
    void member(std::string_view name, const std::vector<std::string>& texts);
    /// Writes nothing if there is no value.
    void member(std::string_view name, const std::optional<double>& of)
    {
        if (of)
            member(name, *of);
    }

    [[nodiscard]] std::string take() { return std::move(text_); }

private:
    void append(std::string_view text);
    void appendQuoted(std::string_view text);
    void enclose(char open, const auto& write, char close)
    {
        append(std::string_view(&open, 1));
        follows_ = false;
        write();
        text_ += close;
        follows_ = true;
    }

    std::string text_;
    bool follows_ = false; ///< a comma stands before the next value or key
};

} // namespace corvane
