#pragma once

#include "platform/user_defaults.h"
#include "session/presets.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The user's saved presets. They are read once, and again before each change, because another process may have changed
/// them. Asking for them does not touch the disk.
class PresetLibrary {
public:
    explicit PresetLibrary(UserDefaults& defaults);

    /// Reads the stored presets. If that fails, presets() is empty, and current() fails with the same message.
    void read();
    /// The presets as last read; empty if they could not be read.
    [[nodiscard]] const std::vector<EditPreset>& presets() const { return presets_; }
    [[nodiscard]] bool canBeRead() const { return !failure_; }
    [[nodiscard]] std::optional<EditPreset> preset(std::string_view id) const;

    /// The list as it is stored now, to be changed. Fails like decodePresets.
    [[nodiscard]] std::vector<EditPreset> current();
    /// Sorts the list and stores it, but only if the new bytes can be read back; otherwise the old list stays. Call
    /// current() first: what it has read is replaced, and kept aside if a newer version had stored more in it.
    void store(std::vector<EditPreset> presets);
    /// Keeps the stored list aside, begins an empty one, and returns the name under which the old one is kept.
    std::string startNew();

private:
    static constexpr const char* key = "Corvane.savedPresets.v1";

    void take(std::string bytes);

    UserDefaults& defaults_;
    std::string bytes_; ///< the stored bytes that last gave presets_
    std::vector<EditPreset> presets_;
    std::optional<std::string> failure_; ///< why the list could not be read
};

} // namespace corvane
