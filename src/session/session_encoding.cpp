#include "session/session_encoding.h"

#include "base/json_writing.h"
#include "engine/setting_fields.h"

#include <map>
#include <set>

namespace corvane {

namespace {

void write(JsonWriter& json, const auto& value)
{
    json.value(value);
}

void write(JsonWriter& json, const std::set<std::string>& cameras)
{
    json.list([&] {
        for (const std::string& camera : cameras)
            json.value(camera);
    });
}

void write(JsonWriter& json, const std::map<std::string, double, std::less<>>& values)
{
    json.object([&] {
        for (const auto& [camera, value] : values)
            json.member(camera, value);
    });
}

void write(JsonWriter& json, const std::vector<SectionDraft>& drafts)
{
    json.list([&] {
        for (const SectionDraft& draft : drafts) {
            json.object([&] {
                json.member("id", draft.id.text());
                json.member("name", draft.name);
                json.member("camera", draft.camera);
                json.member("start", draft.start);
                json.member("end", draft.end);
            });
        }
    });
}

void write(JsonWriter& json, const EditSettings& settings)
{
    json.object([&] {
        forEachSetting([&](const auto& field) {
            json.key(field.name);
            write(json, settings.*field.member);
        });
    });
}

void write(JsonWriter& json, const std::vector<Cut>& cuts)
{
    json.list([&] {
        for (const Cut& cut : cuts) {
            json.object([&] {
                json.member("id", cut.id.text());
                json.member("angle", cut.angle);
                json.member("start", cut.start);
                json.member("duration", cut.duration);
            });
        }
    });
}

} // namespace

std::string encodedSettings(const EditSettings& settings)
{
    JsonWriter json;
    write(json, settings);
    return json.take();
}

std::string encodedRevision(const EditRevision& revision)
{
    JsonWriter json;
    json.object([&] {
        json.member("id", revision.id.text());
        json.member("created", revision.created.seconds);
        json.key("settings");
        write(json, revision.settings);
        json.key("cuts");
        write(json, revision.cuts);
    });
    return json.take();
}

std::vector<std::string_view> SessionEncoder::encode(
    std::string_view encodedXML, const EditSettings& settings, const EditHistory& history)
{
    revisions_.resize(std::min(revisions_.size(), history.items.size()));
    for (std::size_t n = 0; n < history.items.size(); ++n) {
        if (n == revisions_.size())
            revisions_.emplace_back();
        if (revisions_[n].revision == history.items[n])
            continue;
        revisions_[n] = {history.items[n], encodedRevision(*history.items[n])};
        revisions_[n].text.shrink_to_fit(); // it is kept as long as the edit
    }
    settings_ = "\",\"settings\":" + encodedSettings(settings) + ",\"history\":{\"items\":[";
    ending_ = "],\"index\":" + std::to_string(history.index) + "}}";

    std::vector<std::string_view> parts = {"{\"version\":1,\"sourceXML\":\"", encodedXML, settings_};
    for (const KeptRevision& kept : revisions_) {
        if (parts.size() > 3)
            parts.emplace_back(",");
        parts.emplace_back(kept.text);
    }
    parts.emplace_back(ending_);
    return parts;
}

} // namespace corvane
