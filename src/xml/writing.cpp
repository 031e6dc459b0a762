#include "xml/writing.h"

#include "base/error.h"
#include "xml/library_text.h"
#include "xml/text_elements.h"

#include <libxml/tree.h>

#include <algorithm>

namespace corvane::xml {

namespace {

enum class Place { content, attribute };

/// The reference for a character that readers would otherwise change or misread; empty if the character can be written
/// unchanged.
std::string_view reference(char character, Place place)
{
    const bool inAttribute = place == Place::attribute;
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r':
        return "&#13;"; // otherwise readers turn it into a line feed
    case '\n':
        return inAttribute ? "&#10;" : ""; // otherwise readers turn both of these into spaces
    case '\t':
        return inAttribute ? "&#9;" : "";
    case '"':
        return inAttribute ? "&quot;" : "";
    default:
        return "";
    }
}

/// All text is written through this function.
void appendEscaped(std::string& out, std::string_view text, Place place)
{
    std::size_t written = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view escaped = reference(text[at], place);
        if (escaped.empty())
            continue;
        out.append(text, written, at - written);
        out += escaped;
        written = at + 1;
    }
    out.append(text, written);
}

void appendName(std::string& out, const xmlNs* space, const xmlChar* name)
{
    if (hasPrefix(space)) {
        out += view(space->prefix);
        out += ':';
    }
    out += view(name);
}

void appendNamespace(std::string& out, const xmlNs& space)
{
    out += space.prefix == nullptr ? " xmlns" : " xmlns:";
    out += view(space.prefix);
    out += "=\"";
    appendEscaped(out, view(space.href), Place::attribute);
    out += '"';
}

void appendAttribute(std::string& out, const xmlAttr& attribute)
{
    out += ' ';
    appendName(out, attribute.ns, attribute.name);
    out += "=\"";
    for (const xmlNode* text = attribute.children; text != nullptr; text = text->next)
        appendEscaped(out, view(text->content), Place::attribute);
    out += '"';
}

void appendStartTag(std::string& out, const xmlNode& element, std::initializer_list<std::string_view> without)
{
    out += '<';
    appendName(out, element.ns, element.name);
    for (const xmlNs* space = element.nsDef; space != nullptr; space = space->next)
        appendNamespace(out, *space);
    for (const xmlAttr* attribute = element.properties; attribute != nullptr; attribute = attribute->next) {
        if (hasPrefix(attribute->ns) || std::ranges::find(without, view(attribute->name)) == without.end())
            appendAttribute(out, *attribute);
    }
}

bool isBlankText(const xmlNode& node)
{
    return node.type == XML_TEXT_NODE && isBlank(view(node.content));
}

bool keepsSpace(const xmlNode& element)
{
    for (const xmlAttr* attribute = element.properties; attribute != nullptr; attribute = attribute->next) {
        if (hasPrefix(attribute->ns) && view(attribute->ns->prefix) == "xml" && view(attribute->name) == "space")
            return attribute->children != nullptr && view(attribute->children->content) == "preserve";
    }
    return false;
}

/// True if indenting the children would change the element's content.
bool holdsText(const xmlNode& element)
{
    bool onlyText = true;
    for (const xmlNode* child = element.children; child != nullptr; child = child->next) {
        const bool isText = child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE;
        if (isText && !isBlankText(*child))
            return true;
        onlyText = onlyText && isText;
    }
    return onlyText || (!hasPrefix(element.ns) && isTextElement(view(element.name))) || keepsSpace(element);
}

struct TooLarge {};

/// Throws TooLarge beyond mostWritten.
void appendNode(std::string& out, const xmlNode& node, int level, bool asItStands);

void appendLine(std::string& out, int level)
{
    constexpr int deepest = 30; // below this, levels are no longer indented further
    out += '\n';
    out.append(static_cast<std::size_t>(std::min(level, deepest)) * 2, ' ');
}

void appendElement(std::string& out, const xmlNode& element, int level, bool asItStands)
{
    appendStartTag(out, element, {});
    if (element.children == nullptr) {
        out += "/>";
        return;
    }
    out += '>';
    asItStands = asItStands || holdsText(element);
    for (const xmlNode* child = element.children; child != nullptr; child = child->next) {
        if (!asItStands && isBlankText(*child))
            continue;
        if (!asItStands)
            appendLine(out, level + 1);
        appendNode(out, *child, level + 1, asItStands);
    }
    if (!asItStands)
        appendLine(out, level);
    out += "</";
    appendName(out, element.ns, element.name);
    out += '>';
}

/// True if readers get the same text back from a CDATA section. Adjacent sections were joined when they were read.
bool fitsIntoSection(std::string_view text)
{
    return text.find('\r') == std::string_view::npos && text.find("]]>") == std::string_view::npos;
}

/// There are no other kinds of nodes: while a document is read, every entity is either replaced by its text or refused.
void appendNode(std::string& out, const xmlNode& node, int level, bool asItStands)
{
    if (out.size() > mostWritten) // a single node cannot be much larger
        throw TooLarge();
    const std::string_view content = node.type == XML_ELEMENT_NODE ? std::string_view() : view(node.content);
    if (node.type == XML_ELEMENT_NODE) {
        appendElement(out, node, level, asItStands);
    } else if (node.type == XML_COMMENT_NODE) {
        out.append("<!--").append(content).append("-->");
    } else if (node.type == XML_PI_NODE) {
        out.append("<?").append(view(node.name)).append(content.empty() ? "" : " ").append(content).append("?>");
    } else if (node.type == XML_CDATA_SECTION_NODE && fitsIntoSection(content)) {
        out.append("<![CDATA[").append(content).append("]]>");
    } else {
        appendEscaped(out, content, Place::content);
    }
}

} // namespace

void writeElement(std::string& out, Element element, int level)
{
    try {
        appendNode(out, *element.node(), level, false);
    } catch (const TooLarge&) {
        throw PlatformError(
            "The finished project would be larger than 512 MB, so it was not written. Most of it is in “" +
            element.name() + "”. Remove what is not needed in Final Cut and export XML again.");
    }
}

std::string openTag(Element element, std::initializer_list<std::string_view> without)
{
    std::string text;
    appendStartTag(text, *element.node(), without);
    return text;
}

bool isEmpty(Element element)
{
    return element.node()->children == nullptr;
}

} // namespace corvane::xml
