#include "xml/reading.h"

#include "base/error.h"
#include "xml/library_text.h"
#include "xml/limits.h"
#include "xml/parser_complaints.h"
#include "xml/text_elements.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <functional>
#include <mutex>
#include <new>
#include <span>
#include <string>
#include <vector>

// Newer versions of the library deprecate functions for which older versions have no replacement.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace corvane::xml {

namespace {

/// True if the prefix must not be bound to the address: two addresses and their prefixes are reserved by XML itself.
bool isForbidden(std::string_view prefix, std::string_view address)
{
    return (prefix == "xml") != (address == "http://www.w3.org/XML/1998/namespace") || prefix == "xmlns" ||
           address == "http://www.w3.org/2000/xmlns/" || (!prefix.empty() && address.empty());
}

void addCharacters(xmlParserCtxtPtr parser, std::string_view text)
{
    xmlSAX2Characters(parser, reinterpret_cast<const xmlChar*>(text.data()), static_cast<int>(text.size()));
}

/// Frees the parser together with the unfinished document that a failure leaves in it.
struct FreeParser {
    void operator()(xmlParserCtxtPtr parser) const
    {
        xmlFreeDoc(parser->myDoc);
        xmlFreeParserCtxt(parser);
    }
};

/// How many levels of elements these siblings have below them. Stops soon after the limit.
std::size_t levelsFrom(const xmlNode* first)
{
    std::size_t most = 0;
    for (const xmlNode* node = first; node != nullptr; node = node->next) {
        if (node->type == XML_ELEMENT_NODE)
            most = std::max(most, 1 + levelsFrom(node->children));
    }
    return most;
}

/// A start tag as the parser reports it.
struct StartTag {
    std::string_view prefix;
    const xmlChar* name;
    std::span<const xmlChar*> namespaces; ///< of each: prefix, address
    std::span<const xmlChar*> attributes; ///< for each: name, prefix, address, begin and end of the value
};

/// Reads a document once, within the limits, and decides which white space is kept: all of it in an element that
/// contains text and in its descendants; elsewhere white space that only separates elements is dropped. Every event
/// names a parser, either the one started here or one that the library creates for the text of an entity.
class Reading {
public:
    Reading(std::string_view bytes, bool keepsBlanks);

    /// Throws PlatformError, or std::bad_alloc if the library ran out of memory.
    [[nodiscard]] std::shared_ptr<xmlDoc> document();
    /// True if white space was dropped before it turned out to be next to text.
    [[nodiscard]] bool lostBlanks() const { return lostBlanks_; }

private:
    /// An element whose end tag has not been read yet.
    struct Level {
        bool asItStands = false; ///< all white space in it is kept
        bool nodes = false;      ///< it contains something other than text
        bool leftOut = false;    ///< white space in it or below it was dropped
        std::size_t namespaces = 0;
        std::size_t text = 0; ///< bytes
    };

    static Reading& of(void* parser) { return *static_cast<Reading*>(static_cast<xmlParserCtxtPtr>(parser)->_private); }
    void listenToDeclarations();
    void listenToEntities();
    void listenToContents();
    static int read(void* reading, char* out, int room);
    template <class Error>
    static void onError(void* parser, Error* error);
    void refuse(const ParserComplaint& complaint);
    [[nodiscard]] std::string place() const;

    /// Counts something, and refuses the document if that exceeds a limit.
    template <class Count>
    void count(const Count& count);
    void measure(const StartTag& tag);
    [[nodiscard]] bool knowsNamespace(xmlParserCtxtPtr parser, const StartTag& tag) const;
    void checkNames(xmlParserCtxtPtr parser, const StartTag& tag);
    void open(const StartTag& tag);
    void close(xmlParserCtxtPtr parser);
    void text(xmlParserCtxtPtr parser, std::string_view text);
    void textFollows(xmlParserCtxtPtr parser);
    void copyFollows(const xmlNode* first);
    void nodeFollows();

    std::string_view bytes_;
    bool keepsBlanks_;
    std::unique_ptr<xmlParserCtxt, FreeParser> parser_;
    ParserLimits limits_;
    std::string refusal_; ///< once set, the parser gets no more bytes
    std::vector<Level> levels_;
    std::size_t namespaces_ = 0; ///< in scope
    std::string blanks_;         ///< the last text, if what follows decides whether it is kept
    bool lostBlanks_ = false;
};

Reading::Reading(std::string_view bytes, bool keepsBlanks)
    : bytes_(bytes), keepsBlanks_(keepsBlanks), parser_(xmlNewParserCtxt()), limits_(bytes)
{
    if (!parser_)
        throw PlatformError("There is not enough memory to read this file. Close other programs and import again.");
    parser_->_private = this;
    parser_->sax->serror = onError;
    listenToDeclarations();
    listenToEntities();
    listenToContents();
}

void Reading::listenToDeclarations()
{
    xmlSAXHandler& events = *parser_->sax;
    events.internalSubset = [](void* parser, auto... type) {
        of(parser).limits_.documentTypeStarts();
        xmlSAX2InternalSubset(parser, type...);
    };
    events.externalSubset = [](void* parser, auto...) { of(parser).limits_.documentTypeEnds(); }; // it is never read
    events.elementDecl = [](void* parser, auto... declaration) {
        of(parser).count(&ParserLimits::declaration);
        xmlSAX2ElementDecl(parser, declaration...);
    };
    events.attributeDecl = [](void* parser, auto... declaration) {
        of(parser).count(&ParserLimits::declaration);
        xmlSAX2AttributeDecl(parser, declaration...);
    };
    events.notationDecl = [](void* parser, auto... declaration) {
        of(parser).count(&ParserLimits::declaration);
        xmlSAX2NotationDecl(parser, declaration...);
    };
    events.unparsedEntityDecl = [](void* parser, auto... declaration) {
        of(parser).count(&ParserLimits::declaration);
        xmlSAX2UnparsedEntityDecl(parser, declaration...);
    };
}

void Reading::listenToEntities()
{
    xmlSAXHandler& events = *parser_->sax;
    events.entityDecl = [](void* parser, const xmlChar* name, int type, const xmlChar* publicID,
                           const xmlChar* systemID, xmlChar* text) {
        of(parser).count(&ParserLimits::declaration);
        if (type == XML_INTERNAL_GENERAL_ENTITY) {
            of(parser).limits_.entity(view(name), view(text));
            xmlSAX2EntityDecl(parser, name, type, publicID, systemID, text);
        } else if (type == XML_EXTERNAL_GENERAL_PARSED_ENTITY) { // declared as one that is not text, without a location
            xmlSAX2UnparsedEntityDecl(parser, name, nullptr, nullptr, reinterpret_cast<const xmlChar*>(""));
        } else {
            of(parser).count([name](ParserLimits& limits) { limits.parameterEntity(view(name)); });
        }
    };
    events.getParameterEntity = [](void* parser, const xmlChar* name) -> xmlEntityPtr {
        of(parser).count([name](ParserLimits& limits) { limits.parameterEntity(view(name)); });
        return nullptr;
    };
    events.getEntity = [](void* data, const xmlChar* name) -> xmlEntityPtr {
        const auto parser = static_cast<xmlParserCtxtPtr>(data);
        const xmlEntityPtr entity = xmlSAX2GetEntity(parser, name);
        of(parser).count([name](ParserLimits& limits) { limits.entityReference(view(name)); });
        of(parser).textFollows(parser);
        if (entity != nullptr)
            of(parser).copyFollows(entity->children);
        if (of(parser).refusal_.empty())
            return entity;
        parser->wellFormed = 0; // otherwise the library would look for it itself
        return nullptr;
    };
}

void Reading::listenToContents()
{
    xmlSAXHandler& events = *parser_->sax;
    events.startDocument = [](void* data) {
        const auto parser = static_cast<xmlParserCtxtPtr>(data);
        parser->loadsubset |= XML_SKIP_IDS; // nobody looks for identifiers, and collecting them takes time
        xmlSAX2StartDocument(parser);
    };
    events.startElementNs = [](void* parser, const xmlChar* name, const xmlChar* prefix, const xmlChar* address,
                               int spaces, const xmlChar** spaceList, int count, int /*defaults*/,
                               const xmlChar** list) {
        const StartTag tag{
            view(prefix),
            name,
            {spaceList, static_cast<std::size_t>(spaces) * 2},
            {list, static_cast<std::size_t>(count) * 5}};
        of(parser).open(tag);
        if (!of(parser).refusal_.empty())
            return;
        if (!of(parser).knowsNamespace(static_cast<xmlParserCtxtPtr>(parser), tag))
            address = nullptr;
        constexpr int leftOut = 0; // none: default attributes are kept, since no document type is written
        xmlSAX2StartElementNs(parser, name, prefix, address, spaces, spaceList, count, leftOut, list);
        of(parser).checkNames(static_cast<xmlParserCtxtPtr>(parser), tag);
    };
    events.endElementNs = [](void* parser, auto... name) {
        of(parser).close(static_cast<xmlParserCtxtPtr>(parser));
        xmlSAX2EndElementNs(parser, name...);
    };
    events.characters = [](void* parser, const xmlChar* text, int size) {
        const std::string_view whole(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
        of(parser).text(static_cast<xmlParserCtxtPtr>(parser), whole);
    };
    events.ignorableWhitespace = events.characters; // this class decides what to ignore
    events.cdataBlock = [](void* parser, auto... text) {
        of(parser).textFollows(static_cast<xmlParserCtxtPtr>(parser));
        xmlSAX2CDataBlock(parser, text...);
    };
    events.comment = [](void* parser, auto... text) {
        of(parser).nodeFollows();
        xmlSAX2Comment(parser, text...);
    };
    events.processingInstruction = [](void* parser, auto... text) {
        of(parser).nodeFollows();
        xmlSAX2ProcessingInstruction(parser, text...);
    };
}

int Reading::read(void* self, char* out, int room)
{
    Reading& reading = *static_cast<Reading*>(self);
    std::string_view piece;
    if (reading.refusal_.empty())
        reading.count([&](ParserLimits& limits) { piece = limits.next(static_cast<std::size_t>(room)); });
    return static_cast<int>(piece.copy(out, piece.size()));
}

/// Refuses the document after a fatal error, for an undefined entity (which is no fatal error to the library if a part
/// of the document type is in another file), and for names that the library accepts and other readers refuse.
template <class Error>
void Reading::onError(void* parser, Error* error)
{
    Reading& reading = of(parser);
    if (error == nullptr || (error->level != XML_ERR_FATAL && error->code != XML_WAR_UNDECLARED_ENTITY &&
                             (error->level != XML_ERR_ERROR || !isAboutName(error->code))))
        return;
    const auto words = [](const char* text) { return text == nullptr ? std::string_view() : text; };
    reading.refuse({error->code, words(error->message), words(error->str1), words(error->str2)});
}

void Reading::refuse(const ParserComplaint& complaint)
{
    if (refusal_.empty())
        refusal_ = refusalText(complaint, place(), bytes_);
}

/// The position in the document itself, even while the text of an entity is read.
std::string Reading::place() const
{
    const xmlParserInput* input = parser_->inputNr > 0 ? *parser_->inputTab : nullptr;
    return input == nullptr ? "line 1"
                            : "line " + std::to_string(input->line) + ", column " + std::to_string(input->col);
}

template <class Count>
void Reading::count(const Count& count)
{
    std::invoke(count, limits_);
    if (refusal_.empty() && !limits_.excess().empty())
        refusal_ = limits_.excess() + " (" + place() + "). Export the XML from Final Cut again.";
}

void Reading::measure(const StartTag& tag)
{
    const std::size_t attributes = tag.attributes.size() / 5;
    const std::size_t namespaces = tag.namespaces.size() / 2;
    count([&](ParserLimits& limits) {
        limits.element({levels_.size(), attributes, namespaces_}, xmlDictSize(parser_->dict));
    });
    if (!limits_.mayGrow())
        return;
    // Default attributes look the same as those in the tag. In the tag, they would take at least this many bytes.
    std::size_t bytes = attributes * sizeof(R"( a="")") + namespaces * sizeof(R"( xmlns="")");
    for (std::size_t n = 0; n < attributes; ++n)
        bytes += static_cast<std::size_t>(tag.attributes[n * 5 + 4] - tag.attributes[n * 5 + 3]);
    for (std::size_t n = 0; n < namespaces; ++n)
        bytes += view(tag.namespaces[n * 2 + 1]).size();
    count([bytes](ParserLimits& limits) { limits.growth(bytes); });
}

/// False for an element without a prefix in an entity whose default namespace is declared where the entity is used:
/// older versions of the library do not find that namespace and would write that there is none.
bool Reading::knowsNamespace(xmlParserCtxtPtr parser, const StartTag& tag) const
{
    for (std::size_t n = 0; n < tag.namespaces.size(); n += 2) {
        if (tag.namespaces[n] == nullptr)
            return true;
    }
    return !limits_.mayGrow() || !tag.prefix.empty() || xmlSearchNs(parser->myDoc, parser->node, nullptr) != nullptr;
}

/// The library checks names that come from a document type or an entity less strictly than names in the tag itself.
void Reading::checkNames(xmlParserCtxtPtr parser, const StartTag& tag)
{
    if (!limits_.mayGrow() || parser->node == nullptr)
        return;
    constexpr std::string_view words = "added by the document type";
    const auto check = [this, words](std::string_view prefix, const xmlChar* name, bool declared) {
        if (!prefix.empty() && !declared)
            refuse({XML_NS_ERR_UNDEFINED_NAMESPACE, words, prefix, view(name)});
        const std::string whole = std::string(prefix) + (prefix.empty() ? "" : ":") + std::string(view(name));
        if (xmlValidateNCName(name, 0) != 0)
            refuse({XML_NS_ERR_QNAME, words, whole, {}});
    };
    check(tag.prefix, tag.name, parser->node->ns != nullptr);
    for (std::size_t n = 0; n < tag.attributes.size(); n += 5) {
        const xmlChar* prefix = tag.attributes[n + 1];
        const bool declared = prefix != nullptr && xmlSearchNs(parser->myDoc, parser->node, prefix) != nullptr;
        check(view(prefix), tag.attributes[n], declared);
    }
    for (std::size_t n = 0; n < tag.namespaces.size(); n += 2) {
        if (isForbidden(view(tag.namespaces[n]), view(tag.namespaces[n + 1])))
            refuse({XML_NS_ERR_XML_NAMESPACE, words, view(tag.namespaces[n]), {}});
    }
}

void Reading::open(const StartTag& tag)
{
    nodeFollows();
    Level level;
    level.namespaces = tag.namespaces.size() / 2;
    level.asItStands = (levels_.empty() ? keepsBlanks_ : levels_.back().asItStands) ||
                       (tag.prefix.empty() && isTextElement(view(tag.name)));
    for (std::size_t n = 0; n < tag.attributes.size(); n += 5) {
        if (view(tag.attributes[n + 1]) == "xml" && view(tag.attributes[n]) == "space")
            level.asItStands = true;
    }
    levels_.push_back(level);
    namespaces_ += level.namespaces;
    measure(tag);
}

void Reading::close(xmlParserCtxtPtr parser)
{
    if (levels_.empty())
        return;
    if (!levels_.back().nodes && !blanks_.empty())
        textFollows(parser); // white space is all that it contains
    nodeFollows();
    const Level closed = levels_.back();
    levels_.pop_back();
    namespaces_ -= closed.namespaces;
    if (!levels_.empty())
        levels_.back().leftOut = levels_.back().leftOut || closed.leftOut;
}

void Reading::text(xmlParserCtxtPtr parser, std::string_view text)
{
    limits_.contents();
    if (levels_.empty())
        return;
    if (!levels_.back().asItStands && isBlank(text)) {
        blanks_ += text;
        count([this](ParserLimits& limits) { limits.text(blanks_.size()); });
        return;
    }
    textFollows(parser);
    levels_.back().text += text.size();
    count([this](ParserLimits& limits) { limits.text(levels_.back().text); });
    addCharacters(parser, text);
}

/// Text follows in the open element, so the white space before it, and all other white space in the element, is kept.
void Reading::textFollows(xmlParserCtxtPtr parser)
{
    limits_.contents();
    if (levels_.empty())
        return;
    levels_.back().asItStands = true;
    lostBlanks_ = lostBlanks_ || levels_.back().leftOut;
    if (!blanks_.empty())
        addCharacters(parser, blanks_);
    levels_.back().text += blanks_.size();
    blanks_.clear();
}

/// When an entity is used again, the library copies its content without reporting it.
void Reading::copyFollows(const xmlNode* first)
{
    if (levels_.empty())
        return;
    for (const xmlNode* node = first; node != nullptr; node = node->next)
        levels_.back().text += node->type == XML_TEXT_NODE ? view(node->content).size() : 0;
    count([&](ParserLimits& limits) {
        limits.level(levels_.size() + levelsFrom(first));
        limits.text(levels_.back().text);
    });
}

/// Something other than text follows in the open element, so the white space before it only separates elements.
void Reading::nodeFollows()
{
    limits_.contents();
    if (levels_.empty())
        return;
    levels_.back().nodes = true;
    levels_.back().leftOut = levels_.back().leftOut || !blanks_.empty();
    blanks_.clear();
}

std::shared_ptr<xmlDoc> Reading::document()
{
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_COMPACT;
    std::shared_ptr<xmlDoc> document(
        xmlCtxtReadIO(parser_.get(), read, nullptr, this, nullptr, nullptr, options), xmlFreeDoc);
    if (parser_->errNo == XML_ERR_NO_MEMORY)
        throw std::bad_alloc();
    if (refusal_.empty() && !document)
        refusal_ = refusalText({}, place(), bytes_);
    if (!refusal_.empty())
        throw PlatformError(refusal_);
    return document;
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

std::shared_ptr<_xmlDoc> readDocument(std::string_view bytes)
{
    prepareLibrary();
    {
        Reading reading(bytes, false);
        auto document = reading.document();
        if (!reading.lostBlanks())
            return document;
    }
    return Reading(bytes, true).document();
}

} // namespace corvane::xml
