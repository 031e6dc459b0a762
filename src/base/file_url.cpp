#include "base/file_url.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

char upperCase(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Removes `prefix`, given in upper case, from the start of `text`, ignoring case. False if it is not there.
bool takePrefix(std::string_view& text, std::string_view prefix)
{
    if (!std::ranges::equal(text.substr(0, prefix.size()), prefix, {}, upperCase))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

bool standsForItself(char c)
{
    return (upperCase(c) >= 'A' && upperCase(c) <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

/// The byte that the two hexadecimal digits at the start of `text` stand for.
std::optional<char> escapedByte(std::string_view text)
{
    if (text.size() < 2)
        return std::nullopt;
    const std::size_t high = hexDigits.find(upperCase(text[0]));
    const std::size_t low = hexDigits.find(upperCase(text[1]));
    if (high == std::string_view::npos || low == std::string_view::npos)
        return std::nullopt;
    return static_cast<char>(high << 4U | low);
}

} // namespace

std::string fileURLText(std::string_view path)
{
    std::string text = "file://";
    for (const char c : path) {
        if (standsForItself(c)) {
            text += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        text += '%';
        text += hexDigits[byte >> 4U];
        text += hexDigits[byte & 0xFU];
    }
    return text;
}

std::optional<std::string> pathOfFileURL(std::string_view url)
{
    if (!takePrefix(url, "FILE:"))
        return std::nullopt;
    if (takePrefix(url, "//"))
        takePrefix(url, "LOCALHOST");
    if (!url.starts_with('/'))
        return std::nullopt;
    std::string path;
    for (; !url.empty(); url.remove_prefix(1)) {
        char c = url.front();
        if (c <= ' ' || c > '~' || c == '?' || c == '#')
            return std::nullopt;
        if (c == '%') {
            const auto byte = escapedByte(url.substr(1));
            if (!byte || *byte == '\0' || *byte == '/')
                return std::nullopt;
            c = *byte;
            url.remove_prefix(2);
        }
        path += c;
    }
    return path;
}

} // namespace corvane
