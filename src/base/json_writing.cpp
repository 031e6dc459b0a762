#include "base/json_writing.h"

#include "base/error.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

using Json = nlohmann::json;

bool needsNoEscape(char character)
{
    return character >= ' ' && character <= '~' && character != '"' && character != '\\';
}

} // namespace

void JsonWriter::append(std::string_view text)
{
    if (follows_)
        text_ += ',';
    text_ += text;
    follows_ = true;
}

/// Most texts are identifiers and names, for which the library would be slow.
void JsonWriter::appendQuoted(std::string_view text)
{
    if (!std::ranges::all_of(text, needsNoEscape)) {
        append(Json(text).dump(-1, ' ', false, Json::error_handler_t::replace));
        return;
    }
    append("\"");
    text_ += text;
    text_ += '"';
}

void JsonWriter::key(std::string_view name)
{
    appendQuoted(name);
    text_ += ':';
    follows_ = false;
}

void JsonWriter::member(std::string_view name, const std::vector<std::string>& texts)
{
    key(name);
    list([&] {
        for (const std::string& text : texts)
            value(text);
    });
}

void JsonWriter::value(std::string_view text)
{
    appendQuoted(text);
}

void JsonWriter::value(double number)
{
    if (!std::isfinite(number))
        throw PlatformError("A setting is not a number.");
    append(Json(number).dump());
}

} // namespace corvane
