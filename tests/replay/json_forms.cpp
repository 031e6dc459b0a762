#include "replay/json_forms.h"

#include "base/base64.h"
#include "engine/setting_fields.h"
#include "import/source_document.h"
#include "session/record_reading.h"

#include <limits>
#include <map>
#include <type_traits>

namespace corvane {

void to_json(nlohmann::json& json, const FrameRange& range)
{
    json = {range.start, range.end};
}

void from_json(const nlohmann::json& json, FrameRange& range)
{
    range = {json.at(0), json.at(1)};
}

} // namespace corvane

namespace corvane::replay {

namespace {

std::map<std::string, double, std::less<>> numbersByCamera(const Json& json)
{
    std::map<std::string, double, std::less<>> values;
    for (const auto& [camera, value] : json.items())
        values[camera] = number(value);
    return values;
}

std::optional<ShotLengthRange> shotRange(const Json& json)
{
    if (json.is_null())
        return std::nullopt;
    return ShotLengthRange{number(json.at("lower")), number(json.at("upper"))};
}

std::optional<BookendShot> bookend(const Json& json)
{
    if (json.is_null())
        return std::nullopt;
    return BookendShot{json.at("angle").get<std::string>(), number(json.at("seconds"))};
}

void put(const Json& json, double& value)
{
    value = number(json);
}

void put(const Json& json, std::map<std::string, double, std::less<>>& values)
{
    values = numbersByCamera(json);
}

void put(const Json& json, std::vector<SectionDraft>& sections)
{
    sections.clear();
    for (const Json& section : json)
        sections.push_back(
            {identifier(section.at("id")), section.at("name"), section.at("camera"), section.at("start"),
             section.at("end")});
}

template <class Value>
void put(const Json& json, Value& value)
{
    value = json.get<Value>();
}

Json audioSourcePlace(const CutEngine& engine)
{
    if (!engine.source->audioSource)
        return nullptr;
    int place = 0;
    for (const xml::Element child : engine.source->original.children()) {
        if (child == *engine.source->audioSource)
            break;
        place += child.named("mc-source") ? 1 : 0;
    }
    return place;
}

} // namespace

double number(const Json& json)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (json == "nan")
        return std::numeric_limits<double>::quiet_NaN();
    if (json == "inf")
        return infinity;
    return json == "-inf" ? -infinity : json.get<double>();
}

std::string bytes(const Json& base64)
{
    return base64Decoded(base64.get_ref<const std::string&>()).value();
}

Identifier identifier(const Json& text)
{
    return Identifier::parse(text.get_ref<const std::string&>()).value();
}

bool putSetting(EditSettings& settings, std::string_view name, const Json& value)
{
    bool known = false;
    forEachSetting([&](const auto& field) {
        if (field.name != name)
            return;
        put(value, settings.*field.member);
        known = true;
    });
    return known;
}

double EditSettings::* numberSetting(std::string_view name)
{
    double EditSettings::* found = nullptr;
    forEachSetting([&]<class Value>(const SettingField<Value>& field) {
        if constexpr (std::is_same_v<Value, double>)
            found = field.name == name ? field.member : found;
    });
    return found;
}

EditSettings settings(const Json& json)
{
    EditSettings settings;
    forEachSetting([&](const auto& field) { put(json.at(std::string(field.name)), settings.*field.member); });
    return settings;
}

GenerationInputs generationInputs(const Json& json)
{
    GenerationInputs inputs;
    inputs.mainShare = number(json.at("mainShare"));
    inputs.averageShot = number(json.at("averageShot"));
    inputs.mainCamera = json.at("mainCamera");
    inputs.otherCameras = json.at("otherCameras").get<std::vector<std::string>>();
    inputs.doubleMain = json.at("doubleMain");
    inputs.mainRange = shotRange(json.at("mainRange"));
    inputs.otherRange = shotRange(json.at("otherRange"));
    inputs.opening = bookend(json.at("opening"));
    inputs.closing = bookend(json.at("closing"));
    inputs.frequencies = numbersByCamera(json.at("frequencies"));
    for (const Json& section : json.at("fixedSections"))
        inputs.fixedSections.push_back({section.at("angle"), section.at("start"), section.at("end")});
    inputs.returnTimes = numbersByCamera(json.at("returnTimes"));
    return inputs;
}

std::vector<Cut> cuts(const Json& json)
{
    const JsonDocument document = parseJson(json.dump());
    return document.root().list(readCut);
}

Json json(const ImportedProject& project)
{
    Json angles = Json::array();
    for (const ImportedAngle& angle : project.angles)
        angles.push_back(
            {{"id", angle.id},
             {"name", angle.name},
             {"cameras", angle.cameras},
             {"clipCount", angle.clipCount},
             {"gapCount", angle.gapCount},
             {"firstRecording", orNull(angle.firstRecording)}});
    return {
        {"name", project.name},
        {"version", project.version},
        {"duration", project.duration},
        {"framesPerSecond", project.framesPerSecond},
        {"angles", angles},
        {"audioAngles", project.audioAngles},
        {"missingLocations", project.missingLocations}};
}

Json json(const CutEngine& engine)
{
    return {
        {"frameNumerator", engine.frameNumerator},
        {"frameDenominator", engine.frameDenominator},
        {"length", engine.length},
        {"sourceStart", engine.sourceStart},
        {"timelineStart", engine.timelineStart},
        {"coverage", engine.coverage},
        {"audioID", engine.audioID},
        {"audioSource", audioSourcePlace(engine)},
        {"audioCoverage", engine.audioCoverage}};
}

Json presetForm(const EditPreset& preset)
{
    Json form = Json::parse(encodePresets({preset})).front();
    for (const char* key :
         {"returnTimes", "frequencies", "opening", "closing", "mainMinimum", "mainMaximum", "otherMinimum",
          "otherMaximum"})
        form.emplace(key, nullptr); // where it is absent
    return form;
}

IdentifierSource countedIdentifiers()
{
    return [count = std::uint32_t{0}]() mutable {
        Identifier identifier;
        identifier.bytes[6] = 0x40;
        identifier.bytes[8] = 0x80;
        ++count;
        for (std::size_t n = 0; n < 4; ++n)
            identifier.bytes[15 - n] = static_cast<std::uint8_t>(count >> (8 * n));
        return identifier;
    };
}

} // namespace corvane::replay
