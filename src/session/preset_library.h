#pragma once

#include "platform/user_defaults.h"
#include "session/presets.h"

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The saved presets of this user. They are read once, and looked at again before each change, since another process
/// may have changed them; asking for them touches no disk.
class PresetLibrary {
public:
    explicit PresetLibrary(UserDefaults& defaults);

    /// Reads what is stored now. A failure is kept: presets() is empty then, and current() fails in the same words.
    void read();
    /// As read last; empty when the list could not be read.
    [[nodiscard]] const std::vector<EditPreset>& presets() const { return presets_; }
    [[nodiscard]] bool canBeRead() const { return failure_ == nullptr; }
    [[nodiscard]] std::optional<EditPreset> preset(std::string_view id) const;

    /// The list as it is stored now, for a change. Fails as decodePresets where it cannot be read.
    [[nodiscard]] std::vector<EditPreset> current();
    /// Sorts and stores the list, once it has been read back without a complaint; otherwise the old one stays. What a
    /// newer version has stored is kept aside first.
    void store(std::vector<EditPreset> presets);
    /// Keeps what is stored aside, begins an empty list, and returns the name under which the old one is kept.
    std::string startNew();

private:
    static constexpr const char* key = "Corvane.savedPresets.v1";

    void take(std::string bytes);

    UserDefaults& defaults_;
    std::string bytes_; ///< of which presets_ or failure_ were made
    std::vector<EditPreset> presets_;
    std::exception_ptr failure_;
};

} // namespace corvane
