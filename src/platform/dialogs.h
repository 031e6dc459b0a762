#pragma once

#include <optional>
#include <string>

namespace corvane {

/// What asks the user for a file or a folder. Each call waits for the answer; none means cancelled.
class Dialogs {
public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    /// One file or bundle; folders can be chosen, bundles are not browsed into.
    [[nodiscard]] virtual std::optional<std::string> chooseProject(const std::string& message) = 0;
    /// A project was loaded from this file or bundle: the next choice of one begins beside it.
    virtual void rememberProject(const std::string& location) = 0;
    /// One folder, which may be made in the dialog. `firstFolder` is where to begin while none was remembered; empty
    /// when nothing speaks for any.
    [[nodiscard]] virtual std::optional<std::string> chooseFolder(
        const std::string& prompt, const std::string& message, const std::string& firstFolder) = 0;
    /// Files were written to the folder that was chosen: the next choice begins there.
    virtual void rememberFolder(const std::string& folder) = 0;
};

} // namespace corvane
