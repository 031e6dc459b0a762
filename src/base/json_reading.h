#pragma once

#include "base/identifier.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// Strict reading of JSON written by this program, an earlier version or anyone else. What does not match is refused
/// with a PlatformError that names the place: "The data cannot be read: history.items[3].cuts[0].start is not a whole
/// number." Members that are not asked for are ignored; of two with the same name, the last one is used.
namespace corvane {

struct JsonTree;

/// What a null means for a member that may be missing.
enum class Null { isRefused, isMissing };

/// One value of a document. It refers to its parent value, which provides its place for error messages, so it must not
/// be stored or copied.
class JsonValue {
    template <class Read>
    using Made = std::decay_t<std::invoke_result_t<const Read&, const JsonValue&>>;

public:
    JsonValue(const JsonValue&) = delete;
    JsonValue& operator=(const JsonValue&) = delete;
    ~JsonValue() = default;

    /// A text, in valid UTF-8.
    [[nodiscard]] std::string text() const;
    /// A finite number.
    [[nodiscard]] double number() const;
    /// A 64-bit whole number, however it is written: 1, 1.0, 1e0.
    [[nodiscard]] std::int64_t integer() const;
    [[nodiscard]] bool boolean() const;
    /// A UUID in its grouped form, in either case.
    [[nodiscard]] Identifier identifier() const;
    /// The bytes that a padded Base64 text stands for.
    [[nodiscard]] std::string bytes() const;

    /// A member that must exist.
    [[nodiscard]] JsonValue member(std::string_view name) const&;
    [[nodiscard]] JsonValue member(std::string_view name) const&& = delete;

    /// A member that may be missing, read by `read(const JsonValue&)`: optional("end", Null::…, &JsonValue::number).
    template <class Read>
    [[nodiscard]] auto optional(std::string_view name, Null null, const Read& read) const -> std::optional<Made<Read>>
    {
        if (const std::size_t node = find(name, null); node != none)
            return std::invoke(read, JsonValue(*this, node));
        return std::nullopt;
    }

    /// The items of a list, each read by `read(const JsonValue&)`.
    template <class Read>
    [[nodiscard]] auto list(const Read& read) const -> std::vector<Made<Read>>
    {
        const std::size_t end = itemsEnd();
        std::vector<Made<Read>> items;
        for (std::size_t node = node_ + 1; node < end; node = nodeAfter(node))
            items.push_back(std::invoke(read, JsonValue(*this, node, items.size())));
        items.shrink_to_fit();
        return items;
    }

    /// The members of an object with arbitrary names, each read by `read(const JsonValue&)`.
    template <class Read>
    [[nodiscard]] auto map(const Read& read) const -> std::map<std::string, Made<Read>, std::less<>>
    {
        const std::size_t end = membersEnd();
        std::map<std::string, Made<Read>, std::less<>> members;
        for (std::size_t node = node_ + 1; node < end; node = nodeAfter(node))
            members.insert_or_assign(nameOf(node), std::invoke(read, JsonValue(*this, node)));
        return members;
    }

    /// Refuses this value. `complaint` is the end of a sentence that begins with its place, such as "is used twice."
    [[noreturn]] void refuse(std::string_view complaint) const;

private:
    friend class JsonDocument;
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    explicit JsonValue(const JsonTree& root);
    JsonValue(const JsonValue& parent, std::size_t node, std::size_t position = none);

    [[nodiscard]] std::string_view textView() const;
    [[nodiscard]] std::size_t itemsEnd() const;
    [[nodiscard]] std::size_t membersEnd() const;
    [[nodiscard]] std::size_t find(std::string_view name, Null null) const;
    [[nodiscard]] std::size_t nodeAfter(std::size_t node) const;
    [[nodiscard]] const std::string& nameOf(std::size_t node) const;
    [[nodiscard]] std::string place() const;

    const JsonTree& tree_;
    const JsonValue* parent_ = nullptr; ///< null for the whole document
    std::size_t node_ = 0;
    std::size_t position_ = none; ///< the index of an item in its list
};

/// A parsed document.
class JsonDocument {
public:
    [[nodiscard]] JsonValue root() const& { return JsonValue(*tree_); }
    [[nodiscard]] JsonValue root() const&& = delete;

    /// True if the document has members, at any depth, that have not been asked for yet.
    [[nodiscard]] bool holdsMore() const;

private:
    friend JsonDocument parseJson(std::string_view bytes, std::string_view subject);
    explicit JsonDocument(std::shared_ptr<const JsonTree> tree) : tree_(std::move(tree)) {}

    std::shared_ptr<const JsonTree> tree_;
};

/// Parses a whole document; `subject` begins every error message about it. Throws PlatformError if it is not JSON or is
/// larger than 2 GB, if a number does not fit into 64 bits, or if lists and objects are nested more than 256 deep.
[[nodiscard]] JsonDocument parseJson(std::string_view bytes, std::string_view subject = "The data");

} // namespace corvane
