#include "session/session_encoding.h"

#include "base/error.h"
#include "engine/setting_fields.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <map>
#include <set>

namespace corvane {

namespace {

using Json = nlohmann::ordered_json;

/// Refuses NaN and infinity: their text is not JSON, and the file could not be read back.
double finite(double value)
{
    if (!std::isfinite(value))
        throw PlatformError("A setting is not a number.");
    return value;
}

// Lists and objects are written by hand, because destroying the library's own needs memory, and ends the program if
// there is none.

std::string json(const auto& value)
{
    return Json(value).dump();
}

std::string json(double value)
{
    return Json(finite(value)).dump();
}

template <class Values, class Text>
std::string joined(char open, const Values& values, char close, const Text& text)
{
    std::string all(1, open);
    for (const auto& value : values) {
        if (all.size() > 1)
            all += ',';
        all += text(value);
    }
    return all += close;
}

std::string json(const std::set<std::string>& cameras)
{
    return joined('[', cameras, ']', [](const std::string& camera) { return json(camera); });
}

std::string json(const std::map<std::string, double, std::less<>>& values)
{
    return joined('{', values, '}', [](const auto& value) { return json(value.first) + ":" + json(value.second); });
}

std::string json(const std::vector<SectionDraft>& drafts)
{
    return joined('[', drafts, ']', [](const SectionDraft& draft) {
        return "{\"id\":" + json(draft.id.text()) + ",\"name\":" + json(draft.name) +
               ",\"camera\":" + json(draft.camera) + ",\"start\":" + json(draft.start) + ",\"end\":" + json(draft.end) +
               "}";
    });
}

/// Cut lists make up most of the file, and numbers and ids need no escaping, so they are written directly.
void appendCuts(std::string& out, const std::vector<Cut>& cuts)
{
    std::map<std::string_view, std::string> quotedAngles;
    out += '[';
    for (const Cut& cut : cuts) {
        std::string& angle = quotedAngles[cut.angle];
        if (angle.empty())
            angle = Json(cut.angle).dump();
        out += out.back() == '[' ? "{\"id\":\"" : ",{\"id\":\"";
        out += cut.id.text();
        out += "\",\"angle\":";
        out += angle;
        out += ",\"start\":" + std::to_string(cut.start) + ",\"duration\":" + std::to_string(cut.duration) + "}";
    }
    out += ']';
}

} // namespace

std::string encodedSettings(const EditSettings& settings)
{
    std::string text;
    forEachSetting([&](const auto& field) {
        text += text.empty() ? '{' : ',';
        text += json(std::string(field.name)) + ":" + json(settings.*field.member);
    });
    return text += '}';
}

std::string encodedRevision(const EditRevision& revision)
{
    std::string text = "{\"id\":\"" + revision.id.text() +
                       "\",\"created\":" + Json(finite(revision.created.seconds)).dump() +
                       ",\"settings\":" + encodedSettings(revision.settings) + ",\"cuts\":";
    appendCuts(text, revision.cuts);
    text += '}';
    return text;
}

std::vector<std::string_view> SessionEncoder::encode(
    std::string_view encodedXML, const EditSettings& settings, const EditHistory& history)
{
    revisions_.resize(std::min(revisions_.size(), history.items.size()));
    for (std::size_t n = 0; n < history.items.size(); ++n) {
        if (n == revisions_.size())
            revisions_.emplace_back();
        if (revisions_[n].revision != history.items[n])
            revisions_[n] = {history.items[n], encodedRevision(*history.items[n])};
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
