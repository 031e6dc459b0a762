#include "xml/tree.h"

#include "base/error.h"

#include <libxml/tree.h>

namespace corvane::xml {

namespace {

/// A zero-terminated copy of a name, as libxml2 needs it.
class Text {
public:
    explicit Text(std::string_view text) : text_(text) {}
    operator const xmlChar*() const { return reinterpret_cast<const xmlChar*>(text_.c_str()); }

private:
    std::string text_;
};

template <class Node>
Node* checked(Node* node)
{
    if (node == nullptr)
        throw PlatformError("The XML cannot be written: not enough memory.");
    return node;
}

std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> newDocument()
{
    std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(
        checked(xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"))), xmlFreeDoc);
    document->encoding = checked(xmlStrdup(reinterpret_cast<const xmlChar*>("UTF-8")));
    return document;
}

int copyMode(Tree::Copy what)
{
    return what == Tree::Copy::everything ? 1 : 2; // xmlDocCopyNode: 1 = recursive, 2 = attributes and namespaces only
}

} // namespace

Tree::Tree(std::string_view name) : document_(newDocument())
{
    xmlDocSetRootElement(document_.get(), checked(xmlNewDocNode(document_.get(), nullptr, Text(name), nullptr)));
}

Tree::Tree(Element source, Copy what) : document_(newDocument())
{
    xmlDocSetRootElement(document_.get(), checked(xmlDocCopyNode(source.node(), document_.get(), copyMode(what))));
}

Element Tree::root() const
{
    return Element(xmlDocGetRootElement(document_.get()));
}

void Tree::declareNamespaces(Element source)
{
    for (const xmlNs* space = source.node()->nsDef; space != nullptr; space = space->next)
        xmlNewNs(root().node(), space->href, space->prefix); // refuses a prefix that is already declared here
}

void Tree::setAttribute(Element element, std::string_view name, std::string_view value)
{
    checked(xmlSetNsProp(element.node(), nullptr, Text(name), Text(value)));
}

void Tree::removeAttribute(Element element, std::string_view name)
{
    xmlUnsetNsProp(element.node(), nullptr, Text(name));
}

Element Tree::append(Element parent, Element source, Copy what)
{
    xmlNode* copy = checked(xmlDocCopyNode(source.node(), document_.get(), copyMode(what)));
    xmlAddChild(parent.node(), copy);
    return Element(copy);
}

std::optional<Element> Tree::appendChildren(Element parent, Element source, Element emptied)
{
    std::optional<Element> copy;
    for (xmlNode* child = source.node()->children; child != nullptr; child = child->next) {
        if (child == emptied.node())
            copy = append(parent, emptied, Copy::startTag);
        else
            xmlAddChild(parent.node(), checked(xmlDocCopyNode(child, document_.get(), 1)));
    }
    return copy;
}

void Tree::appendInstruction(Element parent, std::string_view name)
{
    xmlAddChild(parent.node(), checked(xmlNewDocPI(document_.get(), Text(name), nullptr)));
}

void Tree::remove(Element element)
{
    xmlUnlinkNode(element.node());
    xmlFreeNode(element.node());
}

} // namespace corvane::xml
