#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

struct _xmlDoc;
struct _xmlNode;

/// Reading XML documents: libxml2 wrapped in types that cannot leak. Names are compared as written, including the
/// prefix. Functions that return elements skip text, comments and processing instructions.
namespace corvane::xml {

class ElementIterator;
struct ElementRange;

/// An element of a document: a lightweight handle that is valid as long as any copy of its Document exists.
class Element {
public:
    explicit Element(_xmlNode* node) : node_(node) {}

    bool operator==(const Element&) const = default;

    /// The name as written. plainName() does not copy it, and is empty for a name with a prefix.
    [[nodiscard]] std::string name() const;
    [[nodiscard]] std::string_view plainName() const;
    [[nodiscard]] bool named(std::string_view name) const { return plainName() == name; }

    /// The attribute's value; none if there is no such attribute, which is not the same as an empty value.
    [[nodiscard]] std::optional<std::string_view> attribute(std::string_view name) const;
    /// The values of several attributes, in the order of `names`, found in one pass.
    template <std::size_t count>
    [[nodiscard]] std::array<std::optional<std::string_view>, count> attributes(
        const std::array<std::string_view, count>& names) const
    {
        std::size_t effort = 0;
        return attributes(names, effort);
    }
    /// `effort` is increased by one for each attribute that the pass comes to, and for each 16 bytes of their names and
    /// of the values that it finds.
    template <std::size_t count>
    [[nodiscard]] std::array<std::optional<std::string_view>, count> attributes(
        const std::array<std::string_view, count>& names, std::size_t& effort) const
    {
        std::array<std::optional<std::string_view>, count> values;
        effort += readAttributes(names, values);
        return values;
    }

    /// The parent element; none for the root.
    [[nodiscard]] std::optional<Element> parent() const;
    /// The child elements, in document order.
    [[nodiscard]] ElementRange children() const;
    [[nodiscard]] std::optional<Element> firstChild(std::string_view name) const;
    /// The elements below this one, at any depth, in document order.
    [[nodiscard]] ElementRange descendants() const;

    /// For the source files of this layer only.
    [[nodiscard]] _xmlNode* node() const { return node_; }

private:
    [[nodiscard]] std::size_t readAttributes(
        std::span<const std::string_view> names, std::span<std::optional<std::string_view>> values) const;

    _xmlNode* node_;
};

/// Iterates over elements in document order: over an element and its following siblings, or over all its descendants.
class ElementIterator {
public:
    using value_type = Element;
    using difference_type = std::ptrdiff_t;
    using iterator_concept = std::forward_iterator_tag;

    ElementIterator() = default;
    ElementIterator(_xmlNode* first, const _xmlNode* below);

    [[nodiscard]] Element operator*() const { return Element(node_); }
    ElementIterator& operator++();
    ElementIterator operator++(int)
    {
        const ElementIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const ElementIterator& other) const { return node_ == other.node_; }
    /// How many nodes of other kinds, such as comments, it has passed.
    [[nodiscard]] std::size_t passed() const { return passed_; }

private:
    void settle();
    void step();

    _xmlNode* node_ = nullptr;
    const _xmlNode* below_ = nullptr; ///< none: siblings only
    std::size_t passed_ = 0;
};

struct ElementRange {
    ElementIterator first;
    [[nodiscard]] ElementIterator begin() const { return first; }
    [[nodiscard]] static ElementIterator end() { return {}; }
};

/// A parsed, immutable document. Copies share it.
class Document {
public:
    /// Reads a whole document. Nothing outside `bytes` is ever loaded, and white space that only separates elements is
    /// dropped. Throws PlatformError at the first fatal error, for an entity that the document does not define, and for
    /// more of anything than real projects contain (ParserLimits). The message says what is wrong, at which line and
    /// column, what to do and, in brackets, the parser's words.
    [[nodiscard]] static Document parse(std::string_view bytes);

    /// None if the document has no element.
    [[nodiscard]] std::optional<Element> root() const;

private:
    explicit Document(std::shared_ptr<_xmlDoc> document) : document_(std::move(document)) {}
    std::shared_ptr<_xmlDoc> document_;
};

} // namespace corvane::xml
