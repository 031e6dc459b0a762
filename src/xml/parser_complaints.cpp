#include "xml/parser_complaints.h"

#include <libxml/xmlerror.h>

#include <algorithm>

namespace corvane::xml {

namespace {

/// The first character that is not white space, in UTF-8, UTF-16 or any other encoding that keeps the values of ASCII;
/// zero if there is none.
char firstSign(std::string_view document)
{
    using namespace std::string_view_literals;
    const std::size_t at = document.find_first_not_of("\xEF\xBB\xBF\xFE\xFF\0 \t\r\n"sv);
    return at == std::string_view::npos ? '\0' : document[at];
}

bool isAboutEntity(int code)
{
    return code == XML_ERR_UNDECLARED_ENTITY || code == XML_WAR_UNDECLARED_ENTITY || code == XML_ERR_UNPARSED_ENTITY;
}

/// True if the parser has reached one of its own limits. Older versions of the library say so only in words.
bool isTooLarge(const ParserComplaint& complaint, std::string_view document)
{
    constexpr int resourceLimit = 114;               // XML_ERR_RESOURCE_LIMIT, which older versions lack
    constexpr std::size_t longestPiece = 10'000'000; // the parser reports something without an end in the same way
    switch (complaint.code) {
    case XML_ERR_INTERNAL_ERROR:
    case XML_ERR_ELEMCONTENT_NOT_FINISHED:
        return complaint.words.find("uge ") != std::string_view::npos ||
               complaint.words.find("depth") != std::string_view::npos;
    case XML_ERR_NO_MEMORY:
    case XML_ERR_NAME_TOO_LONG:
    case XML_ERR_ENTITY_LOOP:
    case resourceLimit:
        return true;
    case XML_ERR_ATTRIBUTE_NOT_FINISHED:
    case XML_ERR_CDATA_NOT_FINISHED:
    case XML_ERR_COMMENT_NOT_FINISHED:
    case XML_ERR_PI_NOT_FINISHED:
        return document.size() > longestPiece;
    default:
        return false;
    }
}

/// The name that an error is about, as written in the document or as much of it as the parser reports.
std::string nameIn(const ParserComplaint& complaint)
{
    std::string name(complaint.name);
    switch (complaint.code) {
    case XML_NS_ERR_UNDEFINED_NAMESPACE:
        return name + ":" + std::string(complaint.after);
    case XML_NS_ERR_XML_NAMESPACE:
        return name.empty() ? "xmlns" : "xmlns:" + name;
    case XML_NS_ERR_QNAME: {
        const std::size_t from = complaint.words.find('\'');
        const std::size_t to = complaint.words.rfind('\'');
        return from < to ? std::string(complaint.words.substr(from + 1, to - from - 1)) : name;
    }
    default:
        return name;
    }
}

std::string sentence(const ParserComplaint& complaint, const std::string& place, std::string_view document)
{
    constexpr const char* exportAgain = "Export the XML from Final Cut again.";
    const char first = firstSign(document);
    if (first == '\0')
        return "This file is empty. Export the XML from Final Cut again.";
    if (first != '<')
        return "This file is not XML. Choose a file that Final Cut has exported as XML.";
    if (isAboutEntity(complaint.code))
        return "This file does not say what the entity “&" + std::string(complaint.name) + ";” stands for (" + place +
               "). Replace it with the text itself, or export the XML from Final Cut again.";
    if (complaint.code == XML_NS_ERR_UNDEFINED_NAMESPACE)
        return "It is unclear what the prefix of “" + nameIn(complaint) + "” stands for (" + place + "). " +
               exportAgain;
    if (isAboutName(complaint.code))
        return "The name “" + nameIn(complaint) + "” breaks the rules of XML (" + place + "). " + exportAgain;
    if (isTooLarge(complaint, document))
        return "What this file holds at " + place + " is too large to be read, or has no end. " + exportAgain;
    return "This file is damaged at " + place + ". " + exportAgain;
}

} // namespace

bool isAboutName(int code)
{
    return code >= XML_NS_ERR_XML_NAMESPACE && code <= XML_NS_ERR_COLON;
}

std::string refusalText(const ParserComplaint& complaint, const std::string& place, std::string_view document)
{
    std::string words(complaint.words);
    words.erase(words.find_last_not_of(" \n") + 1);
    std::ranges::replace(words, '\n', ' ');
    return sentence(complaint, place, document) + " (" + (words.empty() ? "unknown error" : words) + ")";
}

} // namespace corvane::xml
