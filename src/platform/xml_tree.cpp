#include "platform/xml_tree.h"

#include "platform/error.h"

#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include <algorithm>

namespace corvane::xml {

namespace {

/// libxml2 reads names up to their terminating zero.
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

void requireWritten(int result)
{
    if (result < 0)
        throw PlatformError("The XML cannot be written: not enough memory.");
}

int appendTo(void* out, const char* bytes, int count)
{
    // Closing flushes once more, with nothing left to write and nowhere to write it to.
    if (std::string* text = *static_cast<std::string**>(out))
        text->append(bytes, static_cast<std::size_t>(count));
    return count;
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
        xmlNewNs(root().node(), space->href, space->prefix); // refuses a prefix that is declared here already
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

std::string Tree::openTag() const
{
    return ElementWriter().openTag(root());
}

void Tree::write(std::string& out, int level) const
{
    writeElement(out, root(), level);
}

ElementWriter::ElementWriter()
    : buffer_(checked(xmlOutputBufferCreateIO(appendTo, nullptr, static_cast<void*>(&out_), nullptr)))
{
}

ElementWriter::~ElementWriter()
{
    xmlOutputBufferClose(buffer_);
}

void ElementWriter::write(std::string& out, Element element, int level)
{
    out_ = &out;
    xmlNodeDumpOutput(buffer_, element.node()->doc, element.node(), level, 1, "UTF-8");
    const int flushed = xmlOutputBufferFlush(buffer_);
    out_ = nullptr;
    requireWritten(flushed);
}

bool ElementWriter::isEmpty(Element element)
{
    return element.node()->children == nullptr;
}

std::string ElementWriter::openTag(Element element, std::initializer_list<std::string_view> without)
{
    std::string text = "<" + element.name();
    out_ = &text;
    for (const xmlNs* space = element.node()->nsDef; space != nullptr; space = space->next) {
        const std::string name =
            space->prefix == nullptr ? "xmlns" : std::string("xmlns:") + reinterpret_cast<const char*>(space->prefix);
        Tree declaration("namespace"); // whose attribute writes the address as it must be written
        declaration.setAttribute(declaration.root(), "to", reinterpret_cast<const char*>(space->href));
        const std::string tag = declaration.openTag();
        text += " " + name + tag.substr(tag.find('='));
    }
    for (xmlAttr* attribute = element.node()->properties; attribute != nullptr; attribute = attribute->next) {
        const std::string_view name(reinterpret_cast<const char*>(attribute->name));
        if (attribute->ns != nullptr || std::ranges::find(without, name) == without.end())
            xmlNodeDumpOutput(buffer_, element.node()->doc, reinterpret_cast<xmlNode*>(attribute), 0, 0, "UTF-8");
    }
    const int flushed = xmlOutputBufferFlush(buffer_);
    out_ = nullptr;
    requireWritten(flushed);
    return text;
}

void writeElement(std::string& out, Element element, int level)
{
    ElementWriter().write(out, element, level);
}

} // namespace corvane::xml
