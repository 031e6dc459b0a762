#include "help/manual.h"

#include "base/error.h"
#include "base/json_reading.h"
#include "platform/files.h"

#include <algorithm>
#include <set>

namespace corvane {

namespace {

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isSchemeCharacter(char c)
{
    return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

/// True for characters that a web address must not contain unescaped. Non-ASCII letters are left to the browser.
bool isForbiddenInAddresses(char c)
{
    return static_cast<unsigned char>(c) <= ' ' || c == '\x7f' ||
           std::string_view("\"<>\\^`{|}").find(c) != std::string_view::npos;
}

/// True for a scheme followed by something and, after "//", by a host.
bool isAbsoluteAddress(std::string_view url)
{
    const std::size_t colon = url.find(':');
    if (colon == std::string_view::npos || colon == 0 || !isLetter(url.front()) ||
        !std::ranges::all_of(url.substr(0, colon), isSchemeCharacter) ||
        std::ranges::any_of(url, isForbiddenInAddresses))
        return false;
    const std::string_view rest = url.substr(colon + 1);
    return rest.starts_with("//") ? rest.find_first_of("/?#", 2) > 2 && rest.size() > 2 : !rest.empty();
}

CorvaneManual::LinkItem readLink(const JsonValue& link)
{
    CorvaneManual::LinkItem result{.title = link.member("title").text(), .url = link.member("url").text()};
    if (!isAbsoluteAddress(result.url))
        link.member("url").refuse("is not a web address.");
    return result;
}

CorvaneManual::Block readBlock(const JsonValue& block)
{
    return {
        .kind = block.member("kind").text(),
        .text = block.optional("text", Null::isMissing, &JsonValue::text),
        .items = block.optional(
            "items", Null::isMissing, [](const JsonValue& items) { return items.list(&JsonValue::text); }),
        .links = block.optional("links", Null::isMissing, [](const JsonValue& links) { return links.list(readLink); })};
}

CorvaneManual::Section readSection(const JsonValue& section)
{
    return {
        .id = section.member("id").text(),
        .title = section.member("title").text(),
        .summary = section.member("summary").text(),
        .blocks = section.member("blocks").list(readBlock)};
}

} // namespace

CorvaneManual decodeManual(std::string_view bytes)
{
    const JsonDocument document = parseJson(bytes, "The manual");
    const JsonValue manual = document.root();
    std::set<std::string> ids;
    const auto readUnique = [&ids](const JsonValue& section) {
        CorvaneManual::Section result = readSection(section);
        if (!ids.insert(result.id).second)
            section.member("id").refuse("is used twice.");
        return result;
    };
    return {
        .title = manual.member("title").text(),
        .description = manual.member("description").text(),
        .sections = manual.member("sections").list(readUnique)};
}

CorvaneManual loadManual(const Resources& resources)
{
    const auto path = resources.path("CorvaneHelp", "json");
    if (!path)
        throw PlatformError("The included manual could not be found. Reinstall Corvane to restore the help files.");
    return decodeManual(readFile(*path));
}

} // namespace corvane
