#pragma once

#include "engine/cut_generation.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"
#include "session/presets.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// A range is a list of its start and its end.
void to_json(nlohmann::json& json, const FrameRange& range);
void from_json(const nlohmann::json& json, FrameRange& range);

} // namespace corvane

/// The forms in which cases and answers write the records.
namespace corvane::replay {

using Json = nlohmann::json;

/// A double; those that are not finite are the words "nan", "inf" and "-inf".
[[nodiscard]] double number(const Json& json);
[[nodiscard]] std::string bytes(const Json& base64);
[[nodiscard]] Identifier identifier(const Json& text);

/// Puts the value of a case into the setting of that name; false when no setting has it.
bool putSetting(EditSettings& settings, std::string_view name, const Json& value);
/// The number among the settings that has that name.
[[nodiscard]] double EditSettings::* numberSetting(std::string_view name);

[[nodiscard]] EditSettings settings(const Json& json);
[[nodiscard]] GenerationInputs generationInputs(const Json& json);
[[nodiscard]] std::vector<Cut> cuts(const Json& json);

[[nodiscard]] Json json(const ImportedProject& project);
[[nodiscard]] Json json(const CutEngine& engine);
/// All sixteen keys, null where absent.
[[nodiscard]] Json presetForm(const EditPreset& preset);

/// Identifiers that come out the same in every run: numbers in the shape of random ones.
[[nodiscard]] IdentifierSource countedIdentifiers();

template <class Value>
Json orNull(const std::optional<Value>& value)
{
    return value ? Json(*value) : Json(nullptr);
}

/// What the operation returns, or {"error": message} when it fails.
template <class Operation>
Json attempt(const Operation& operation)
{
    try {
        return operation();
    } catch (const std::runtime_error& failure) {
        return {{"error", failure.what()}};
    }
}

} // namespace corvane::replay
