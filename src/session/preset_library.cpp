#include "session/preset_library.h"

#include <algorithm>

namespace corvane {

PresetLibrary::PresetLibrary(UserDefaults& defaults) : defaults_(defaults)
{
    read();
}

void PresetLibrary::read()
{
    try {
        std::string bytes = defaults_.value(key);
        if (failure_ != nullptr || bytes != bytes_)
            take(std::move(bytes));
    } catch (const std::exception&) {
        failure_ = std::current_exception();
        presets_.clear();
    }
}

void PresetLibrary::take(std::string bytes)
{
    presets_ = decodePresets(bytes);
    bytes_ = std::move(bytes);
    failure_ = nullptr;
}

std::optional<EditPreset> PresetLibrary::preset(std::string_view id) const
{
    const auto found =
        std::ranges::find_if(presets_, [id](const EditPreset& preset) { return preset.id.text() == id; });
    return found == presets_.end() ? std::nullopt : std::optional(*found);
}

std::vector<EditPreset> PresetLibrary::current()
{
    read();
    if (failure_ != nullptr)
        std::rethrow_exception(failure_);
    return presets_;
}

void PresetLibrary::store(std::vector<EditPreset> presets)
{
    sortPresets(presets);
    std::string bytes = encodePresets(presets);
    std::vector<EditPreset> readBack = decodePresets(bytes);
    if (presetsHoldMore(defaults_.value(key)))
        (void)defaults_.keepAside(key);
    defaults_.setValue(key, bytes);
    presets_ = std::move(readBack);
    bytes_ = std::move(bytes);
    failure_ = nullptr;
}

std::string PresetLibrary::startNew()
{
    std::string kept = defaults_.keepAside(key);
    std::string bytes = encodePresets({});
    defaults_.setValue(key, bytes);
    take(std::move(bytes));
    return kept;
}

} // namespace corvane
