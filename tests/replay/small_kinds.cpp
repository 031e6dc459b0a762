#include "engine/coverage_report.h"
#include "export/export_files.h"
#include "import/time_values.h"
#include "replay/kinds.h"
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
    const auto given = ranges(request.at("ranges"));
    return {
        {"normalizeRanges", json(normalizeRanges(given))},
        {"uncoveredStretches", json(uncoveredStretches(given, request.at("length")))}};
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

} // namespace corvane::replay
