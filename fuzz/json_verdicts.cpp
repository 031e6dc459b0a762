// json_verdicts SEED COUNT FILE…: reads COUNT documents that are mutated from the files, and prints of each its number,
// whether it was read or refused, and a hash of all that was read: fuzz/compare_json.sh compares two builds by it.
// json_verdicts SEED NUMBER: FILE… prints that one document and what was made of it.
#include "base/error.h"
#include "base/json_reading.h"

#include <array>
#include <bit>
#include <charconv>
#include <clocale>
#include <cstdint>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

using corvane::JsonValue;

const std::array<std::string, 44> pieces = {
    "1e400",
    "-1e400",
    "1e-400",
    "-0",
    "-0.0",
    "1E5",
    "0.1",
    "1.0e+2",
    "9223372036854775807",
    "-9223372036854775808",
    "9223372036854775808",
    "-9223372036854775809",
    "18446744073709551616",
    "4.9e-324",
    "2.4e-324",
    "01",
    "1.",
    ".5",
    "+1",
    "NaN",
    "null",
    "true",
    "false",
    "\"\"",
    "\"\\u0000\"",
    "\"\\ud83d\\ude00\"",
    "\"\\ud800\"",
    "\"\\\"\\\\\\/\\n\"",
    "\"\xc3\xa4\"",
    "\"\xc3\"",
    "\"\xed\xa0\x80\"",
    "\xef\xbb\xbf",
    std::string(1, '\0'),
    "[",
    "]",
    "{",
    "}",
    ",",
    ":",
    "\"a\":1,",
    "\"a\":[],",
    std::string(300, '['),
    "1.7976931348623157e308",
    "123456789012345678901234567890.5"};

class Mutations {
public:
    Mutations(std::uint64_t seed, const std::vector<std::string>& files) : draws_(seed), files_(files) {}

    std::string operator()()
    {
        std::string document = one(files_);
        const bool staysJson = below(2) == 0; // mostly
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
            if (staysJson)
                replaceValue(document, document.find(':', below(document.size() + 1)));
            else
                change(document);
        }
        return document;
    }

private:
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(draws_() % count); }

    template <class List>
    const std::string& one(const List& list)
    {
        return list[below(list.size())];
    }

    void change(std::string& document)
    {
        const std::size_t at = below(document.size() + 1);
        const std::size_t length = below(40);
        switch (below(8)) {
        case 0:
            document.insert(at, one(pieces));
            break;
        case 1:
            document.replace(at, length, one(pieces));
            break;
        case 2:
            document.erase(at, length);
            break;
        case 3:
            document.insert(below(document.size() + 1), document.substr(at, length));
            break;
        case 4: {
            const std::string& other = one(files_);
            document.replace(at, std::string::npos, other, below(other.size() + 1));
            break;
        }
        case 5:
            if (at < document.size())
                document[at] = static_cast<char>(std::bit_cast<unsigned char>(document[at]) ^ (1U << below(8)));
            break;
        default:
            replaceValue(document, document.find(':', at));
        }
    }

    void replaceValue(std::string& document, std::size_t colon)
    {
        if (colon == std::string::npos)
            return;
        const std::size_t end = document.find_first_of(",]}", colon);
        document.replace(colon + 1, end == std::string::npos ? end : end - colon - 1, one(pieces));
    }

    std::mt19937_64 draws_;
    const std::vector<std::string>& files_;
};

/// Whether the value is of the kind that `read` reads.
bool isRead(const auto& read)
{
    try {
        read();
        return true;
    } catch (const corvane::PlatformError&) {
        return false;
    }
}

std::string numberText(double value)
{
    std::array<char, 64> text{};
    return {text.data(), std::to_chars(text.begin(), text.end(), value, std::chars_format::hex).ptr};
}

/// Everything that can be read of a value.
std::string content(const JsonValue& value)
{
    std::string text;
    const auto mark = [&](const char* kind) { text += kind; };
    if (isRead([&] { text += '"' + value.text() + '"'; })) {
        if (isRead([&] { text += value.bytes(); }))
            mark(" bytes");
        return text;
    }
    if (isRead([&] { text += numberText(value.number()); })) {
        if (isRead([&] { text += " " + std::to_string(value.integer()); }))
            mark(" whole");
        return text;
    }
    if (isRead([&] { text += value.boolean() ? "true" : "false"; }))
        return text;
    if (isRead([&] {
            for (const std::string& item : value.list(content))
                text += "[" + item;
        }))
        return text + "]";
    if (isRead([&] {
            for (const auto& [name, member] : value.map(content))
                text += "{" + name + ":" + member;
        }))
        return text + "}";
    return "null";
}

struct Verdict {
    bool isRead = false;
    std::string content; ///< or the complaint
};

Verdict verdict(const std::string& document)
{
    try {
        const auto parsed = corvane::parseJson(document);
        return {true, content(parsed.root())};
    } catch (const corvane::PlatformError& refusal) {
        return {false, refusal.what()};
    }
}

} // namespace

int main(int count, char** arguments)
{
    std::ios::sync_with_stdio(false);
    if (std::setlocale(LC_ALL, "") == nullptr)
        return std::cerr << "There is no such locale.\n", 1;
    std::vector<std::string> files;
    for (int number = 3; number < count; ++number) {
        std::ifstream file(arguments[number], std::ios::binary);
        files.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    if (files.empty())
        return std::cerr << "usage: json_verdicts SEED COUNT FILE…\n", 1;
    const std::string_view asked = arguments[2];
    const bool one = asked.ends_with(':');
    Mutations mutated(std::stoull(arguments[1]), files);
    for (std::uint64_t number = 1, last = std::stoull(arguments[2]); number <= last; ++number) {
        const std::string document = mutated();
        if (one && number < last)
            continue;
        const auto [isRead, content] = verdict(document);
        if (one)
            std::cout << document << "\n\n" << content << '\n';
        else if (isRead)
            std::cout << number << " read " << std::hash<std::string>()(content) << '\n';
        else
            std::cout << number << " refused: " << content << '\n';
    }
}
