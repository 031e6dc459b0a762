#pragma once

#include "platform/files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The most bytes that are stored under one key.
constexpr std::uint64_t largestDefault = std::uint64_t{16} << 20U;

/// The user's stored settings of this program: bytes by key.
class UserDefaults {
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    /// Empty if the key does not exist. Throws PlatformError if the value cannot be read or is larger than
    /// largestDefault.
    [[nodiscard]] virtual std::string value(const std::string& key) const = 0;
    /// Throws PlatformError and then keeps the old value.
    virtual void setValue(const std::string& key, std::string_view bytes) = 0;
    /// Keeps the key's value under another key, "KEY (kept)", "KEY (kept 2)" and so on, and returns that key. If the
    /// value can be read, it also stays under its own key. Throws PlatformError and then changes nothing.
    virtual std::string keepAside(const std::string& key) = 0;
};

/// Stores one file per key in a folder, which is created when the first value is set.
class FileUserDefaults : public UserDefaults {
public:
    explicit FileUserDefaults(std::string folder, FileCalls& calls = FileCalls::system());
    /// In the user's configuration folder: XDG_CONFIG_HOME, or .config in the home folder.
    [[nodiscard]] static std::string usualFolder();

    [[nodiscard]] std::string value(const std::string& key) const override;
    void setValue(const std::string& key, std::string_view bytes) override;
    std::string keepAside(const std::string& key) override;

private:
    std::string folder_;
    FileCalls& calls_;
};

} // namespace corvane
