#include "bench/document_text.h"

namespace corvane::bench {

std::string numbered(std::string_view name, std::size_t number)
{
    std::string text(name);
    text += std::to_string(number);
    return text;
}

void DocumentText::prologue()
{
    text_ += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE fcpxml>\n\n";
}

void DocumentText::startTag(std::string_view name, Attributes attributes)
{
    text_.append(level_ * 4, ' ');
    text_ += '<';
    text_ += name;
    for (const Attribute& attribute : attributes) {
        text_ += ' ';
        text_ += attribute.name;
        text_ += "=\"";
        text_ += attribute.value;
        text_ += '"';
    }
}

void DocumentText::open(std::string_view name, Attributes attributes)
{
    startTag(name, attributes);
    text_ += ">\n";
    open_.emplace_back(name);
    ++level_;
}

void DocumentText::close()
{
    --level_;
    text_.append(level_ * 4, ' ');
    text_ += "</" + open_.back() + ">\n";
    open_.pop_back();
}

void DocumentText::element(std::string_view name, Attributes attributes)
{
    startTag(name, attributes);
    text_ += "/>\n";
}

void DocumentText::element(std::string_view name, Attributes attributes, std::string_view content)
{
    startTag(name, attributes);
    text_ += '>';
    text_ += content;
    text_ += "</";
    text_ += name;
    text_ += ">\n";
}

} // namespace corvane::bench
