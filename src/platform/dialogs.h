#pragma once

#include <optional>
#include <string>

namespace corvane {

/// Asks the user for a file or a folder. Each call waits for the answer; none means that the user cancelled.
class Dialogs {
public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    /// Asks for one file or bundle. Bundles are chosen as a whole, not opened like folders.
    [[nodiscard]] virtual std::optional<std::string> chooseProject(const std::string& message) = 0;
    /// Call this after a project was loaded from this file or bundle: the next dialog for a project starts in its
    /// folder.
    virtual void rememberProject(const std::string& location) = 0;
    /// Asks for one folder, which may be created in the dialog. The dialog starts in the remembered folder or, if there
    /// is none, in `firstFolder`; `firstFolder` may be empty.
    [[nodiscard]] virtual std::optional<std::string> chooseFolder(
        const std::string& prompt, const std::string& message, const std::string& firstFolder) = 0;
    /// Call this after files were written to the chosen folder: the next dialog for a folder starts there.
    virtual void rememberFolder(const std::string& folder) = 0;
    /// The path of a file to be made, which may be taken. `name` is suggested; the choice begins where the last such
    /// file was saved.
    [[nodiscard]] virtual std::optional<std::string> chooseNewFile(
        const std::string& title, const std::string& message, const std::string& name) = 0;
    /// A file was saved here: the next choice of a new one begins beside it.
    virtual void rememberNewFile(const std::string& path) = 0;
};

} // namespace corvane
