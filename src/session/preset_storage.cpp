#include "base/error.h"
#include "base/text.h"
#include "engine/setting_limits.h"
#include "import/final_cut_import_error.h"
#include "session/presets.h"
#include "session/record_reading.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

using Json = nlohmann::ordered_json;

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
        return ids.insert(preset.id).second && names.insert(lowerCased(trimmed(preset.name))).second;
    });
}

template <class Row>
Json rowJson(const std::vector<Row>& rows, const char* key, double Row::* member)
{
    Json list = Json::array();
    for (const Row& row : rows)
        list.push_back({{"angleName", row.angleName}, {key, row.*member}});
    return list;
}

Json presetJson(const EditPreset& preset)
{
    Json object = {
        {"id", preset.id.text()},
        {"name", preset.name},
        {"mainShare", preset.mainShare},
        {"averageShot", preset.averageShot},
        {"doubleMain", preset.doubleMain},
        {"mainAngleName", preset.mainAngleName},
        {"otherAngleNames", preset.otherAngleNames},
        {"audioAngleName", preset.audioAngleName}};
    if (preset.returnTimes)
        object["returnTimes"] = rowJson(*preset.returnTimes, "seconds", &PresetReturnTime::seconds);
    if (preset.frequencies)
        object["frequencies"] = rowJson(*preset.frequencies, "weight", &PresetFrequency::weight);
    const auto addBookend = [&](const char* key, const std::optional<PresetBookend>& bookend) {
        if (bookend)
            object[key] = {{"angleName", bookend->angleName}, {"seconds", bookend->seconds}};
    };
    addBookend("opening", preset.opening);
    addBookend("closing", preset.closing);
    const auto addNumber = [&](const char* key, const std::optional<double>& number) {
        if (number)
            object[key] = *number;
    };
    addNumber("mainMinimum", preset.mainMinimum);
    addNumber("mainMaximum", preset.mainMaximum);
    addNumber("otherMinimum", preset.otherMinimum);
    addNumber("otherMaximum", preset.otherMaximum);
    return object;
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
    Json list = Json::array();
    for (const EditPreset& preset : presets)
        list.push_back(presetJson(preset));
    return list.dump();
}

} // namespace corvane
