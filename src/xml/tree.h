#pragma once

#include "xml/document.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct _xmlDoc;

namespace corvane::xml {

/// A tree that can be changed and written, copied from a document or newly made. Copies keep attribute values,
/// comments, CDATA and, wherever they are placed, the namespaces of their source.
class Tree {
public:
    enum class Copy { everything, startTag };

    /// A new element without attributes.
    explicit Tree(std::string_view name);
    /// A copy of `source`: everything, or only its name, attributes and namespace declarations.
    explicit Tree(Element source, Copy what = Copy::everything);

    [[nodiscard]] Element root() const;

    /// Declares on the root the prefixes that `source` itself declares and the root does not yet declare.
    void declareNamespaces(Element source);
    /// Changes the value in place, or adds the attribute at the end if it does not exist.
    void setAttribute(Element element, std::string_view name, std::string_view value);
    /// Does nothing if there is no such attribute.
    void removeAttribute(Element element, std::string_view name);
    /// Appends a copy of `source`; returns the copy.
    Element append(Element parent, Element source, Copy what = Copy::everything);
    /// Appends copies of all child nodes of `source`, including comments and text. Only the start tag of the child
    /// `emptied` is copied; returns that copy, or none if `emptied` is not a child of `source`.
    std::optional<Element> appendChildren(Element parent, Element source, Element emptied);
    /// Appends a processing instruction without content.
    void appendInstruction(Element parent, std::string_view name);
    /// Removes an element and everything in it.
    void remove(Element element);

private:
    std::unique_ptr<_xmlDoc, void (*)(_xmlDoc*)> document_;
};

} // namespace corvane::xml
