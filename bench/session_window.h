#pragma once

#include "platform/dialogs.h"
#include "platform/user_defaults.h"
#include "workspace/content_view.h"

#include <cstddef>
#include <memory>
#include <string>

namespace corvane::bench {

/// How much a measured session holds.
struct SessionSize {
    std::size_t cuts; ///< of each revision
    std::size_t revisions;
    std::size_t documentBytes; ///< about
};

/// The parts of a session: a project's document, what is on screen, and revisions whose cuts tile the project.
struct LargeSession {
    std::string sourceXML;
    EditSettings settings;
    EditHistory history;
};
[[nodiscard]] LargeSession largeSession(const SessionSize& size);

/// A session that a morning's work leaves: a file of about 7 MB.
inline constexpr SessionSize usual = {500, 100, 1'000'000};

/// A folder of its own with the stored session.
[[nodiscard]] std::string storedSession(const SessionSize& size);

/// A window on the sessions in one folder, with a user who exports into it and answers nothing else.
class SessionWindow {
public:
    explicit SessionWindow(const std::string& folder);

    /// Restores the stored session, and saves it as every restore does. Fails with std::runtime_error where the
    /// window then says that something went wrong.
    void appear();
    /// Changes a setting, which saves. Fails with std::runtime_error where that is refused.
    void setMainShare(double percent);

    [[nodiscard]] const WorkspaceState& state() const { return view_.state(); }
    [[nodiscard]] ContentView& view() { return view_; }
    [[nodiscard]] UserDefaults& defaults() { return defaults_; }
    [[nodiscard]] XMLInbox& inbox() { return inbox_; }

private:
    void requireNoComplaint() const;

    struct Answers : Dialogs {
        std::string folder;
        std::optional<std::string> chooseProject(const std::string&) override { return std::nullopt; }
        std::optional<std::string> chooseFolder(const std::string&, const std::string&, const std::string&) override
        {
            return folder;
        }
        void rememberProject(const std::string&) override {}
        void rememberFolder(const std::string&) override {}
        std::optional<std::string> chooseNewFile(const std::string&, const std::string&, const std::string&) override
        {
            return std::nullopt;
        }
        void rememberNewFile(const std::string&) override {}
    };

    Answers dialogs_;
    FileUserDefaults defaults_;
    SessionStore sessions_;
    NoBundledApplications services_;
    XMLInbox inbox_;
    ContentView view_;
};

/// Replaces the file in the folder by these bytes with as few calls as a safe replacement can have: one write to a
/// new file, a sync, a rename and a sync of the folder. Fails with std::runtime_error.
void writeBare(const std::string& folder, const std::string& name, std::string_view bytes);

} // namespace corvane::bench
