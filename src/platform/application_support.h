#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// A folder of the user's: the one that the environment variable names, if that is an absolute path, otherwise the
/// folder `inHome` in the user's home. It need not exist. Throws PlatformError if no home folder can be found.
[[nodiscard]] std::string userFolder(const char* variable, std::string_view inHome);

/// The path with "~" for the user's home folder, as people read it.
[[nodiscard]] std::string shortPath(const std::string& path);

/// The folder in which the user's programs keep their data. All of them share it, so the caller appends "Corvane".
class ApplicationSupport {
public:
    ApplicationSupport() = default;
    ApplicationSupport(const ApplicationSupport&) = delete;
    ApplicationSupport& operator=(const ApplicationSupport&) = delete;
    virtual ~ApplicationSupport() = default;

    /// The folder, created if it is missing: XDG_DATA_HOME if that is an absolute path, otherwise .local/share in the
    /// user's home. Throws PlatformError.
    [[nodiscard]] virtual std::string folder();

    /// The implementation for this system.
    [[nodiscard]] static ApplicationSupport& system();
};

} // namespace corvane
