#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// A folder of the user's: what the environment variable names, where that is an absolute path, otherwise the folder
/// `inHome` in the user's home. It need not be there. Fails with PlatformError where no home can be found.
[[nodiscard]] std::string userFolder(const char* variable, std::string_view inHome);

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
