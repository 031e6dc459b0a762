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

/// XML documents to read: libxml2 behind values that cannot leak. Names are compared as they are written, prefix
/// included; text, comments and processing instructions are skipped where elements are asked for.
namespace corvane::xml {

class ElementIterator;
struct ElementRange;

/// An element of a document: a light handle that stays valid as long as any copy of its Document lives.
class Element {
public:
    explicit Element(_xmlNode* node) : node_(node) {}

    bool operator==(const Element&) const = default;

    /// The name as written; plainName() is the same without a copy, and empty for a name with a prefix.
    [[nodiscard]] std::string name() const;
    [[nodiscard]] std::string_view plainName() const;
    [[nodiscard]] bool named(std::string_view name) const { return plainName() == name; }

    /// The attribute's text; none when the attribute is absent, which is not the same as empty.
    [[nodiscard]] std::optional<std::string_view> attribute(std::string_view name) const;
    /// The values of several attributes in one sweep, in the order of `names`.
    template <std::size_t count>
    [[nodiscard]] std::array<std::optional<std::string_view>, count> attributes(
        const std::array<std::string_view, count>& names) const
    {
        std::array<std::optional<std::string_view>, count> values;
        readAttributes(names, values);
        return values;
    }

    /// The element around this one; none for the root.
    [[nodiscard]] std::optional<Element> parent() const;
    /// The child elements, in document order.
    [[nodiscard]] ElementRange children() const;
    [[nodiscard]] std::optional<Element> firstChild(std::string_view name) const;
    /// The elements below this one, at any depth, in document order.
    [[nodiscard]] ElementRange descendants() const;

    /// For this library's own sources.
    [[nodiscard]] _xmlNode* node() const { return node_; }

private:
    void readAttributes(
        std::span<const std::string_view> names, std::span<std::optional<std::string_view>> values) const;

    _xmlNode* node_;
};

/// Walks elements in document order: the siblings from one on, or everything below one.
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

private:
    void settle();
    void step();

    _xmlNode* node_ = nullptr;
    const _xmlNode* below_ = nullptr; ///< none: siblings only
};

struct ElementRange {
    ElementIterator first;
    [[nodiscard]] ElementIterator begin() const { return first; }
    [[nodiscard]] static ElementIterator end() { return {}; }
};

/// A parsed document. Copies share it; nothing changes it.
class Document {
public:
    /// Reads a whole document. Nothing outside the bytes is ever loaded, and blanks that only set elements apart are
    /// left out. The first fatal error refuses, as do an entity that the document does not define and more of
    /// anything than projects hold (ParserLimits): PlatformError with what is wrong at which line and column, what to
    /// do and, in brackets, the parser's words.
    [[nodiscard]] static Document parse(std::string_view bytes);

    /// None when the document has no element.
    [[nodiscard]] std::optional<Element> root() const;

private:
    explicit Document(std::shared_ptr<_xmlDoc> document) : document_(std::move(document)) {}
    std::shared_ptr<_xmlDoc> document_;
};

} // namespace corvane::xml
