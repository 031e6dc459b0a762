#pragma once

#include "xml/document.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct _xmlDoc;

namespace corvane::xml {

/// A tree of its own that may be changed and written: copied from a document or made new. Copies keep attribute
/// text, comments, CDATA and, wherever the copy comes to stand, the namespaces of what they copy.
class Tree {
public:
    enum class Copy { everything, startTag };

    /// A new element without attributes.
    explicit Tree(std::string_view name);
    /// A copy of `source`: all of it, or only its name, attributes and namespace declarations.
    explicit Tree(Element source, Copy what = Copy::everything);

    [[nodiscard]] Element root() const;

    /// Declares on the root the prefixes that `source` itself declares and the root does not.
    void declareNamespaces(Element source);
    /// Changes the value in place; an attribute that is not there yet comes last.
    void setAttribute(Element element, std::string_view name, std::string_view value);
    /// Nothing happens when there is no such attribute.
    void removeAttribute(Element element, std::string_view name);
    /// Appends a copy of `source`; returns the copy.
    Element append(Element parent, Element source, Copy what = Copy::everything);
    /// Appends copies of all child nodes of `source`, comments and text among them. Of the child `emptied` only the
    /// start tag is copied; returns that copy, or none when `emptied` is no child of `source`.
    std::optional<Element> appendChildren(Element parent, Element source, Element emptied);
    /// Appends a processing instruction without content.
    void appendInstruction(Element parent, std::string_view name);
    /// Takes an element out of the tree, with everything in it.
    void remove(Element element);

private:
    std::unique_ptr<_xmlDoc, void (*)(_xmlDoc*)> document_;
};

} // namespace corvane::xml
