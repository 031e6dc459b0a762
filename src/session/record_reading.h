#pragma once

#include "base/json_reading.h"
#include "engine/edit_settings.h"
#include "session/edit_history.h"
#include "session/presets.h"

namespace corvane {

/// Read the records from files. Every key is required. A missing key or a value of the wrong type throws PlatformError.
[[nodiscard]] EditSettings readSettings(const JsonValue& value);
[[nodiscard]] Cut readCut(const JsonValue& value);
[[nodiscard]] SharedRevision readRevision(const JsonValue& value);
[[nodiscard]] EditHistory readHistory(const JsonValue& value);

/// Optional fields of a preset may be missing or null. The values are not validated.
[[nodiscard]] EditPreset readPreset(const JsonValue& value);

} // namespace corvane
