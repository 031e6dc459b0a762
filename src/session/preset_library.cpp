#include "session/preset_library.h"

#include "base/error.h"

#include <algorithm>

namespace corvane {

PresetLibrary::PresetLibrary(UserDefaults& defaults) : defaults_(defaults)
{
    read();
}

void PresetLibrary::read()
{
    auto failure = failureOf("read the presets", [&] {
        std::string bytes = defaults_.value(key);
        if (failure_ || bytes != bytes_)
            take(std::move(bytes));
    });
    if (!failure)
        return;
    failure_ = std::move(failure);
    presets_.clear();
}

void PresetLibrary::take(std::string bytes)
{
    presets_ = decodePresets(bytes);
    bytes_ = std::move(bytes);
    failure_.reset();
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
    if (failure_)
        throw PlatformError(*failure_);
    return presets_;
}

void PresetLibrary::store(std::vector<EditPreset> presets)
{
    sortPresets(presets);
    std::string bytes = encodePresets(presets);
    std::vector<EditPreset> readBack = decodePresets(bytes);
    if (presetsHoldMore(bytes_))
        (void)defaults_.keepAside(key);
    defaults_.setValue(key, bytes);
    presets_ = std::move(readBack);
    bytes_ = std::move(bytes);
    failure_.reset();
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
