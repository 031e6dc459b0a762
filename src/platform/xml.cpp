#include "platform/xml.h"

#include "platform/error.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>

#include <algorithm>
#include <climits>
#include <mutex>

namespace corvane::xml {

namespace {

std::string_view view(const xmlChar* text)
{
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

bool hasPrefix(const xmlNs* space)
{
    return space != nullptr && space->prefix != nullptr;
}

/// The parser's first fatal error, as one line for the user.
struct FirstFatalError {
    std::string text;

    /// The library hands over a constant error since its version 2.12: this takes both.
    template <class Error>
    static void onError(void* parser, Error* error)
    {
        auto* first = static_cast<FirstFatalError*>(static_cast<xmlParserCtxtPtr>(parser)->_private);
        if (first == nullptr || error == nullptr || error->level != XML_ERR_FATAL || !first->text.empty())
            return;
        std::string words = error->message == nullptr ? "unknown error" : error->message;
        words.erase(words.find_last_not_of(" \n") + 1);
        std::replace(words.begin(), words.end(), '\n', ' ');
        first->text = "The XML cannot be read: line " + std::to_string(error->line) + ", column " +
                      std::to_string(error->int2) + ": " + words;
    }
};

struct FreeParser {
    void operator()(xmlParserCtxtPtr parser) const { xmlFreeParserCtxt(parser); }
};

/// Declares an entity as the library does, but without a place: before it asks the loader below, the library looks
/// whether the file that an entity names is there.
void declareEntity(
    void* parser, const xmlChar* name, int type, const xmlChar* publicID, const xmlChar* systemID, xmlChar* content)
{
    xmlSAX2EntityDecl(parser, name, type, publicID, systemID, content);
    const xmlDoc* document = static_cast<xmlParserCtxtPtr>(parser)->myDoc;
    if (systemID == nullptr || document == nullptr || document->intSubset == nullptr)
        return;
    void* declared =
        type == XML_EXTERNAL_PARAMETER_ENTITY ? document->intSubset->pentities : document->intSubset->entities;
    auto* entity = static_cast<xmlEntityPtr>(xmlHashLookup(static_cast<xmlHashTablePtr>(declared), name));
    if (entity == nullptr || entity->URI == nullptr)
        return;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the entity owns it
    xmlFree(const_cast<xmlChar*>(entity->URI));
    entity->URI = xmlStrdup(reinterpret_cast<const xmlChar*>(""));
}

void prepareLibrary()
{
    static std::once_flag once;
    std::call_once(once, [] {
        xmlInitParser();
        xmlSetExternalEntityLoader(
            [](const char*, const char*, xmlParserCtxtPtr) -> xmlParserInputPtr { return nullptr; });
    });
}

} // namespace

std::string Element::name() const
{
    std::string text(view(node_->name));
    if (hasPrefix(node_->ns))
        text.insert(0, std::string(view(node_->ns->prefix)) + ":");
    return text;
}

std::string_view Element::plainName() const
{
    return hasPrefix(node_->ns) ? std::string_view() : view(node_->name);
}

std::optional<std::string_view> Element::attribute(std::string_view name) const
{
    std::optional<std::string_view> value;
    readAttributes({&name, 1}, {&value, 1});
    return value;
}

void Element::readAttributes(
    std::span<const std::string_view> names, std::span<std::optional<std::string_view>> values) const
{
    for (const xmlAttr* attribute = node_->properties; attribute != nullptr; attribute = attribute->next) {
        if (hasPrefix(attribute->ns))
            continue;
        const std::string_view attributeName = view(attribute->name);
        const auto asked = std::ranges::find(names, attributeName);
        if (asked == names.end())
            continue; // the value of this one is not even looked at
        // Entities are substituted while parsing, so that a value is one text node, or none when it is empty.
        const xmlNode* text = attribute->children;
        values[static_cast<std::size_t>(asked - names.begin())] =
            text == nullptr ? std::string_view() : view(text->content);
    }
}

void Element::fetchAhead() const
{
    constexpr std::size_t cacheLine = 64;
    constexpr std::size_t farthest = 8192; // about two clips with their attributes and notes
    const char* memory = reinterpret_cast<const char*>(node_);
    for (std::size_t distance = sizeof(xmlNode); distance < farthest; distance += cacheLine)
        __builtin_prefetch(memory + distance); // no access: past the heap's end it does nothing
}

std::optional<Element> Element::parent() const
{
    _xmlNode* above = node_->parent;
    return above != nullptr && above->type == XML_ELEMENT_NODE ? std::optional(Element(above)) : std::nullopt;
}

ElementRange Element::children() const
{
    return {ElementIterator(node_->children, nullptr)};
}

std::optional<Element> Element::firstChild(std::string_view name) const
{
    for (const Element child : children()) {
        if (child.named(name))
            return child;
    }
    return std::nullopt;
}

ElementRange Element::descendants() const
{
    return {ElementIterator(node_->children, node_)};
}

ElementIterator::ElementIterator(_xmlNode* first, const _xmlNode* below) : node_(first), below_(below)
{
    settle();
}

ElementIterator& ElementIterator::operator++()
{
    step();
    settle();
    return *this;
}

void ElementIterator::settle()
{
    while (node_ != nullptr && node_->type != XML_ELEMENT_NODE)
        step();
}

void ElementIterator::step()
{
    if (below_ == nullptr) {
        node_ = node_->next;
        return;
    }
    if (node_->type == XML_ELEMENT_NODE && node_->children != nullptr) {
        node_ = node_->children;
        return;
    }
    while (node_ != below_ && node_->next == nullptr)
        node_ = node_->parent;
    node_ = node_ == below_ ? nullptr : node_->next;
}

Document Document::parse(std::string_view bytes)
{
    prepareLibrary();
    if (bytes.size() > INT_MAX)
        throw PlatformError("The XML cannot be read: it is larger than 2 GB.");

    const std::unique_ptr<xmlParserCtxt, FreeParser> parser(xmlNewParserCtxt());
    if (!parser)
        throw PlatformError("The XML cannot be read: not enough memory.");
    FirstFatalError firstError;
    parser->_private = &firstError;
    parser->sax->serror = FirstFatalError::onError;
    parser->sax->entityDecl = declareEntity;
    const std::shared_ptr<xmlDoc> document(
        xmlCtxtReadMemory(
            parser.get(), bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr,
            XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOBLANKS | XML_PARSE_COMPACT),
        xmlFreeDoc);
    if (!document)
        throw PlatformError(firstError.text.empty() ? "The XML cannot be read: it is empty." : firstError.text);
    // A document that names no encoding is UTF-8; said so, it is written again without character references.
    if (document->encoding == nullptr)
        document->encoding = xmlStrdup(reinterpret_cast<const xmlChar*>("UTF-8"));
    return Document(document);
}

std::optional<Element> Document::root() const
{
    xmlNode* root = xmlDocGetRootElement(document_.get());
    return root == nullptr ? std::nullopt : std::optional(Element(root));
}

} // namespace corvane::xml
