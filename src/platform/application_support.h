#pragma once

#include <string>

namespace corvane {

/// Where the user's programs keep their own data. The folder is shared by all of them: whoever asks appends "Corvane",
/// the folder itself never holds that name.
class ApplicationSupport {
public:
    ApplicationSupport() = default;
    ApplicationSupport(const ApplicationSupport&) = delete;
    ApplicationSupport& operator=(const ApplicationSupport&) = delete;
    virtual ~ApplicationSupport() = default;

    /// The folder, made when it is missing: XDG_DATA_HOME where that is an absolute path, otherwise .local/share in the
    /// user's home. Fails with PlatformError.
    [[nodiscard]] virtual std::string folder();

    /// This system's.
    [[nodiscard]] static ApplicationSupport& system();
};

} // namespace corvane
