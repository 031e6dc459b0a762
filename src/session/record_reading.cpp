#include "session/record_reading.h"

#include "engine/setting_fields.h"

namespace corvane {

namespace {

SectionDraft readSection(const JsonValue& value)
{
    return {
        value.member("id").identifier(), value.member("name").text(), value.member("camera").text(),
        value.member("start").text(), value.member("end").text()};
}

PresetReturnTime readReturnTime(const JsonValue& value)
{
    return {value.member("angleName").text(), value.member("seconds").number()};
}

PresetFrequency readFrequency(const JsonValue& value)
{
    return {value.member("angleName").text(), value.member("weight").number()};
}

PresetBookend readBookend(const JsonValue& value)
{
    return {value.member("angleName").text(), value.member("seconds").number()};
}

void read(const JsonValue& value, double& number)
{
    number = value.number();
}

void read(const JsonValue& value, bool& isOn)
{
    isOn = value.boolean();
}

void read(const JsonValue& value, std::string& text)
{
    text = value.text();
}

void read(const JsonValue& value, std::set<std::string>& cameras)
{
    for (std::string& camera : value.list(&JsonValue::text))
        cameras.insert(std::move(camera));
}

void read(const JsonValue& value, std::map<std::string, double, std::less<>>& numbersByCamera)
{
    numbersByCamera = value.map(&JsonValue::number);
}

void read(const JsonValue& value, std::vector<SectionDraft>& sections)
{
    sections = value.list(readSection);
}

} // namespace

EditSettings readSettings(const JsonValue& value)
{
    EditSettings settings;
    forEachSetting([&](const auto& field) { read(value.member(field.name), settings.*field.member); });
    return settings;
}

Cut readCut(const JsonValue& value)
{
    return {
        value.member("id").identifier(), value.member("angle").text(), value.member("start").integer(),
        value.member("duration").integer()};
}

SharedRevision readRevision(const JsonValue& value)
{
    return std::make_shared<const EditRevision>(EditRevision{
        value.member("id").identifier(),
        {value.member("created").number()},
        readSettings(value.member("settings")),
        value.member("cuts").list(readCut)});
}

EditHistory readHistory(const JsonValue& value)
{
    return {value.member("items").list(readRevision), value.member("index").integer()};
}

EditPreset readPreset(const JsonValue& value)
{
    EditPreset preset;
    preset.id = value.member("id").identifier();
    preset.name = value.member("name").text();
    preset.mainShare = value.member("mainShare").number();
    preset.averageShot = value.member("averageShot").number();
    preset.doubleMain = value.member("doubleMain").boolean();
    preset.mainAngleName = value.member("mainAngleName").text();
    preset.otherAngleNames = value.member("otherAngleNames").list(&JsonValue::text);
    preset.audioAngleName = value.member("audioAngleName").text();
    preset.returnTimes =
        value.optional("returnTimes", Null::isMissing, [](const JsonValue& rows) { return rows.list(readReturnTime); });
    preset.frequencies =
        value.optional("frequencies", Null::isMissing, [](const JsonValue& rows) { return rows.list(readFrequency); });
    preset.opening = value.optional("opening", Null::isMissing, readBookend);
    preset.closing = value.optional("closing", Null::isMissing, readBookend);
    preset.mainMinimum = value.optional("mainMinimum", Null::isMissing, &JsonValue::number);
    preset.mainMaximum = value.optional("mainMaximum", Null::isMissing, &JsonValue::number);
    preset.otherMinimum = value.optional("otherMinimum", Null::isMissing, &JsonValue::number);
    preset.otherMaximum = value.optional("otherMaximum", Null::isMissing, &JsonValue::number);
    return preset;
}

} // namespace corvane
