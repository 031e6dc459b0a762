#include "engine/coverage_report.h"
#include "export/export_files.h"
#include "help/topic_search.h"
#include "import/time_values.h"
#include "replay/kinds.h"
#include "session/edit_history.h"
#include "session/presets.h"
#include "timecode/timecode.h"

#include <set>

namespace corvane::replay {

Json answerValues(const Json& request)
{
    const std::int64_t numerator = request.at("frameNumerator");
    const std::int64_t denominator = request.at("frameDenominator");
    Json answer;
    for (const auto& text : request.at("texts").get<std::vector<std::string>>()) {
        answer["parseRationalTime"].push_back(attempt([&]() -> Json {
            const RationalTime time = parseRationalTime(text);
            return {time.numerator, time.denominator};
        }));
        answer["alignedFrames"].push_back(
            attempt([&]() -> Json { return alignedFrames(text, numerator, denominator); }));
    }
    answer["parseSeconds"].push_back(attempt([]() -> Json { return parseSeconds(std::nullopt); }));
    for (const auto& text : request.at("secondsTexts").get<std::vector<std::string>>())
        answer["parseSeconds"].push_back(attempt([&]() -> Json { return parseSeconds(text); }));
    for (const Frames frames : request.at("frames").get<std::vector<Frames>>()) {
        answer["timeString"].push_back(timeString(frames, numerator, denominator));
        answer["timecodeText"].push_back(
            {timecodeText(frames, numerator, denominator, FrameCount::nonDrop),
             timecodeText(frames, numerator, denominator, FrameCount::dropFrame)});
    }
    return answer;
}

Json answerRanges(const Json& request)
{
    const auto given = request.at("ranges").get<std::vector<FrameRange>>();
    return {
        {"normalizeRanges", normalizeRanges(given)},
        {"uncoveredStretches", uncoveredStretches(given, request.at("length"))}};
}

Json answerNames(const Json& request)
{
    constexpr std::size_t usualLimit = 255;
    const auto existing = request.at("existing").get<std::set<std::string>>();
    return {{"exportNames", attempt([&]() -> Json {
                 const ExportNames names =
                     exportNames(request.at("projectName").get<std::string>(), usualLimit, [&](const auto& name) {
                         return existing.contains(name);
                     });
                 return {names.xml, names.settings};
             })}};
}

Json answerPresets(const Json& request)
{
    std::vector<EditPreset> named;
    for (const auto& name : request.at("names").get<std::vector<std::string>>())
        named.emplace_back().name = name;
    sortPresets(named);
    Json answer = {{"sorted", Json::array()}, {"derived", Json::array()}};
    answer["decodePresets"] = attempt([&]() -> Json {
        Json forms = Json::array();
        for (const EditPreset& preset : decodePresets(bytes(request.at("data"))))
            forms.push_back(presetForm(preset));
        return forms;
    });
    for (const EditPreset& preset : named)
        answer["sorted"].push_back(preset.name);
    for (const Json& pair : request.at("pairs")) {
        const DerivedRanges ranges = derivedRanges(pair.at(0), pair.at(1));
        answer["derived"].push_back({ranges.mainMinimum, ranges.mainMaximum, ranges.otherMinimum, ranges.otherMaximum});
    }
    return answer;
}

Json answerTopic(const Json& request)
{
    const Json manual = {{"title", ""}, {"description", ""}, {"sections", {request.at("section")}}};
    return {{"topicMatches", attempt([&]() -> Json {
                 return topicMatches(
                     decodeManual(manual.dump()).sections.front(), request.at("query").get<std::string>());
             })}};
}

Json answerHistory(const Json& request)
{
    EditHistory history;
    std::map<Identifier, std::string> names; // cases name revisions freely
    const IdentifierSource identifiers = countedIdentifiers();
    Json answers = Json::array();
    for (const Json& step : request.at("steps")) {
        if (step.contains("append")) {
            const Identifier id = identifiers();
            names[id] = step.at("append");
            history.append(std::make_shared<const EditRevision>(
                EditRevision{.id = id, .created = {}, .settings = {}, .cuts = {}}));
        } else {
            history.index = step.at("index");
        }
        Json items = Json::array();
        for (const SharedRevision& revision : history.items)
            items.push_back(names.at(revision->id));
        const SharedRevision current = history.currentRevision();
        answers.push_back(
            {{"items", items},
             {"index", history.index},
             {"current", current ? Json(names.at(current->id)) : Json(nullptr)}});
    }
    return {{"history", answers}};
}

} // namespace corvane::replay
