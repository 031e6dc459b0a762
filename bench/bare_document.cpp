#include "bench/bare_document.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <climits>
#include <stdexcept>

namespace corvane::bench {

BareDocument BareDocument::parse(std::string_view bytes)
{
    if (bytes.size() > INT_MAX)
        throw std::runtime_error("The document is too large to be parsed.");
    std::shared_ptr<xmlDoc> document(
        xmlReadMemory(
            bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr,
            XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOBLANKS | XML_PARSE_COMPACT),
        xmlFreeDoc);
    if (!document)
        throw std::runtime_error("The document cannot be parsed.");
    return BareDocument(std::move(document));
}

std::size_t BareDocument::serialise() const
{
    xmlChar* text = nullptr;
    int size = 0;
    xmlDocDumpFormatMemoryEnc(static_cast<xmlDoc*>(document_.get()), &text, &size, "UTF-8", 1);
    const std::unique_ptr<xmlChar, void (*)(void*)> owner(text, xmlFree);
    if (!owner || size <= 0)
        throw std::runtime_error("The document cannot be written.");
    return static_cast<std::size_t>(size);
}

} // namespace corvane::bench
