#include "base/error.h"
#include "base/json_writing.h"
#include "base/text.h"
#include "engine/setting_limits.h"
#include "import/final_cut_import_error.h"
#include "session/presets.h"
#include "session/record_reading.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

bool isBlank(std::string_view text)
{
    return trimmed(text).empty();
}

bool isRange(const std::optional<double>& minimum, const std::optional<double>& maximum)
{
    if (!minimum && !maximum)
        return true;
    return minimum && maximum && limits::shotLength.holdRange(*minimum, *maximum);
}

bool isBookend(const std::optional<PresetBookend>& bookend)
{
    return !bookend || (!isBlank(bookend->angleName) && limits::bookendLength.hold(bookend->seconds));
}

bool isValid(const EditPreset& preset)
{
    const auto validReturnTime = [](const PresetReturnTime& row) {
        return !isBlank(row.angleName) && limits::returnTime.hold(row.seconds);
    };
    const auto validWeight = [](const PresetFrequency& row) {
        return !isBlank(row.angleName) && limits::frequency.hold(row.weight);
    };
    return !isBlank(preset.name) && limits::mainShare.hold(preset.mainShare) &&
           limits::averageShot.hold(preset.averageShot) &&
           (!preset.returnTimes || std::ranges::all_of(*preset.returnTimes, validReturnTime)) &&
           (!preset.frequencies || std::ranges::all_of(*preset.frequencies, validWeight)) &&
           isBookend(preset.opening) && isBookend(preset.closing) && isRange(preset.mainMinimum, preset.mainMaximum) &&
           isRange(preset.otherMinimum, preset.otherMaximum);
}

bool allDistinct(const std::vector<EditPreset>& presets)
{
    std::set<Identifier> ids;
    std::set<std::string> names;
    return std::ranges::all_of(presets, [&](const EditPreset& preset) {
        return ids.insert(preset.id).second && names.insert(comparableName(preset.name)).second;
    });
}

template <class Row>
void writeRows(
    JsonWriter& json, std::string_view name, const std::optional<std::vector<Row>>& rows, std::string_view numberName,
    double Row::* number)
{
    if (!rows)
        return;
    json.key(name);
    json.list([&] {
        for (const Row& row : *rows) {
            json.object([&] {
                json.member("angleName", row.angleName);
                json.member(numberName, row.*number);
            });
        }
    });
}

void writeBookend(JsonWriter& json, std::string_view name, const std::optional<PresetBookend>& bookend)
{
    if (!bookend)
        return;
    json.key(name);
    json.object([&] {
        json.member("angleName", bookend->angleName);
        json.member("seconds", bookend->seconds);
    });
}

void writeMembers(JsonWriter& json, const EditPreset& preset)
{
    json.member("id", preset.id.text());
    json.member("name", preset.name);
    json.member("mainShare", preset.mainShare);
    json.member("averageShot", preset.averageShot);
    json.member("doubleMain", preset.doubleMain);
    json.member("mainAngleName", preset.mainAngleName);
    json.member("otherAngleNames", preset.otherAngleNames);
    json.member("audioAngleName", preset.audioAngleName);
    writeRows(json, "returnTimes", preset.returnTimes, "seconds", &PresetReturnTime::seconds);
    writeRows(json, "frequencies", preset.frequencies, "weight", &PresetFrequency::weight);
    writeBookend(json, "opening", preset.opening);
    writeBookend(json, "closing", preset.closing);
    json.member("mainMinimum", preset.mainMinimum);
    json.member("mainMaximum", preset.mainMaximum);
    json.member("otherMinimum", preset.otherMinimum);
    json.member("otherMaximum", preset.otherMaximum);
}

struct StoredPresets {
    std::vector<EditPreset> presets;
    bool holdMore = false; ///< the list has members that this program does not know
};

StoredPresets storedPresets(std::string_view bytes)
{
    try {
        const JsonDocument document = parseJson(bytes, "The list of presets");
        std::vector<EditPreset> presets = document.root().list(readPreset);
        return {std::move(presets), document.holdsMore()};
    } catch (const PlatformError& failure) {
        throw PlatformError(
            "The file of the saved presets is damaged, or another version of Corvane has written it. It has been kept. "
            "Choose Start a New List… to put it aside and begin again. (" +
            std::string(failure.what()) + ")");
    }
}

} // namespace

std::vector<EditPreset> decodePresets(std::string_view bytes)
{
    if (bytes.empty())
        return {};
    std::vector<EditPreset> presets = storedPresets(bytes).presets;
    if (!allDistinct(presets) || !std::ranges::all_of(presets, isValid))
        throw FinalCutImportError::invalid(
            "The saved presets could not be read. Your existing saved data has been kept.");
    return presets;
}

bool presetsHoldMore(std::string_view bytes)
{
    return !bytes.empty() && storedPresets(bytes).holdMore;
}

std::string encodePresets(const std::vector<EditPreset>& presets)
{
    JsonWriter json;
    json.list([&] {
        for (const EditPreset& preset : presets)
            json.object([&] { writeMembers(json, preset); });
    });
    return json.take();
}

} // namespace corvane
