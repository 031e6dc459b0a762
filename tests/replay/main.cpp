// Reads cases, one JSON object per line, from standard input and writes the program's answers, one per line, to
// standard output. It knows no expected answers: run it before and after a change to see what the change did. An
// optional argument sets the locale, which must not change anything.
#include "replay/kinds.h"

#include <clocale>
#include <exception>
#include <iostream>
#include <map>
#include <string>

namespace {

using corvane::replay::Json;

const std::map<std::string, Json (*)(const Json&)> kinds = {
    {"document", corvane::replay::answerDocument}, {"values", corvane::replay::answerValues},
    {"ranges", corvane::replay::answerRanges},     {"names", corvane::replay::answerNames},
    {"presets", corvane::replay::answerPresets},   {"topic", corvane::replay::answerTopic},
    {"history", corvane::replay::answerHistory},   {"story", corvane::replay::answerStory},
};

} // namespace

int main(int count, char** arguments)
try {
    // The system's messages stay untranslated, so that a full disk is reported in the same words everywhere.
    if (count > 1 && !(std::setlocale(LC_ALL, arguments[1]) && std::setlocale(LC_MESSAGES, "C"))) {
        std::cerr << "There is no locale " << arguments[1] << ": run ./test.sh once, it generates that of the tests.\n";
        return 2;
    }
    std::ios::sync_with_stdio(false);
    for (std::string line; std::getline(std::cin, line);) {
        if (line.empty())
            continue;
        const Json request = Json::parse(line);
        const auto kind = kinds.find(request.at("kind").get<std::string>());
        Json answer = kind == kinds.end() ? Json::object() : kind->second(request);
        answer["case"] = request.at("case");
        std::cout << answer.dump() << '\n';
    }
    return 0;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
