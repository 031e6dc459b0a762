#include "intake/xml_inbox.h"

#include <utility>

namespace corvane {

XMLInbox& XMLInbox::shared()
{
    static XMLInbox inbox;
    return inbox;
}

void XMLInbox::setURL(std::optional<std::string> location)
{
    url_ = std::move(location);
    observers_.notify();
}

void XMLInbox::setXMLData(std::optional<std::string> bytes)
{
    xmlData_ = std::move(bytes);
    observers_.notify();
}

std::string XMLInbox::takeXMLData()
{
    return std::exchange(xmlData_, std::nullopt).value();
}

void XMLInbox::setImportError(std::optional<std::string> text)
{
    importError_ = std::move(text);
    observers_.notify();
}

} // namespace corvane
