#pragma once

#include "base/json_reading.h"
#include "engine/edit_settings.h"
#include "session/edit_history.h"
#include "session/presets.h"

namespace corvane {

/// Read the records as files hold them. Every key is required; a wrong type fails with PlatformError.
[[nodiscard]] EditSettings readSettings(const JsonValue& value);
[[nodiscard]] Cut readCut(const JsonValue& value);
[[nodiscard]] SharedRevision readRevision(const JsonValue& value);
[[nodiscard]] EditHistory readHistory(const JsonValue& value);

/// What is optional in a preset may be missing or null. Its values are not looked at.
[[nodiscard]] EditPreset readPreset(const JsonValue& value);

} // namespace corvane
