#pragma once

#include "base/error.h"
#include "support/scratch_folder.h"
#include "workspace/content_view.h"

#include <map>
#include <random>

namespace corvane::test {

/// Answers as it was told; runs `meanwhile` while the dialog is open.
struct AnsweringDialogs : Dialogs {
    std::optional<std::string> answer;
    std::function<void()> meanwhile = [] {};
    int asked = 0;
    std::string firstFolder;   ///< proposed for the last export
    std::string suggestedName; ///< for the last new file
    std::vector<std::string> saved;
    std::vector<std::string> remembered;
    std::vector<std::string> projects; ///< that were loaded

    std::optional<std::string> chooseProject(const std::string&) override { return reply(); }
    std::optional<std::string> chooseFolder(const std::string&, const std::string&, const std::string& first) override
    {
        firstFolder = first;
        return reply();
    }
    void rememberProject(const std::string& location) override { projects.push_back(location); }
    std::optional<std::string> chooseNewFile(
        const std::string& /*title*/, const std::string& /*message*/, const std::string& name) override
    {
        suggestedName = name;
        return reply();
    }
    void rememberNewFile(const std::string& path) override { saved.push_back(path); }
    void rememberFolder(const std::string& folder) override { remembered.push_back(folder); }
    std::optional<std::string> reply()
    {
        ++asked;
        meanwhile();
        return answer;
    }
};

struct MemoryDefaults : UserDefaults {
    std::map<std::string, std::string> values;

    [[nodiscard]] std::string value(const std::string& key) const override
    {
        return values.contains(key) ? values.at(key) : "";
    }
    void setValue(const std::string& key, std::string_view bytes) override { values[key] = bytes; }
    std::string keepAside(const std::string& key) override
    {
        std::string kept = key + " (kept)";
        values[kept] = values[key];
        return kept;
    }
};

/// A Final Cut that opens files, and reports when the test says so.
struct WaitingFinalCut : WorkspaceServices {
    bool installed = true;
    std::vector<std::string> opened;
    std::vector<Report> reports;

    [[nodiscard]] std::optional<std::string> application(const std::string& identifier) const override
    {
        return installed && identifier == "com.apple.FinalCut" ? std::optional<std::string>("Final Cut") : std::nullopt;
    }
    void open(const std::vector<std::string>& files, const std::string&, Report report) override
    {
        opened = files;
        reports.push_back(std::move(report));
    }
};

struct CountingScope : SecurityScope {
    int held = 0;

    bool start(const std::string&) override { return ++held > 0; }
    void stop(const std::string&) override { --held; }
};

/// A window on a scratch folder that stands for the user's account; quit() and start() are a restart.
class TestWindow {
public:
    ScratchFolder folder;
    AnsweringDialogs dialogs;
    MemoryDefaults defaults;
    WaitingFinalCut finalCut;
    CountingScope scope;
    XMLInbox inbox;
    FileCalls* sessionCalls = &FileCalls::system();
    std::function<std::string()> sessionFolder = [this] { return folder.file("Corvane"); };
    RandomNumbers randomNumbers = [this] { return std::uniform_real_distribution<double>(0, 1)(random_); };

    TestWindow()
    {
        std::filesystem::create_directory(folder.file("Corvane"));
        std::filesystem::create_directory(folder.file("exports"));
        start();
    }

    void start()
    {
        sessions_ = std::make_unique<SessionStore>(sessionFolder, *sessionCalls);
        view_ = std::make_unique<ContentView>(WorkspaceServicesInUse{
            .dialogs = dialogs,
            .defaults = defaults,
            .sessions = *sessions_,
            .scope = scope,
            .services = finalCut,
            .inbox = inbox,
            .mainThread = [](const std::function<void()>& work) { work(); },
            .randomNumbers = randomNumbers});
    }
    void quit() { view_.reset(); }
    void restart()
    {
        quit();
        start();
        view_->windowAppeared();
    }

    void importAndGenerate(const std::string& xml)
    {
        view_->importXML(xml);
        view_->generateRoughEdit();
    }
    /// An edit of nothing but settings.
    void set(std::function<void(EditSettings&)> change)
    {
        view_->edit([change = std::move(change)](WorkspaceState& state) { change(state.settings); });
    }

    /// Another cut list in place of the generated one.
    void showCuts(const std::vector<Cut>& cuts)
    {
        view_->edit([&cuts](WorkspaceState& state) {
            EditRevision changed = *state.preview;
            changed.cuts = cuts;
            state.preview = std::make_shared<const EditRevision>(changed);
        });
    }

    /// As another process would, or an earlier version.
    void storeSession(std::string_view bytes) const { replaceFile(sessionFile(), {&bytes, 1}); }
    /// No file takes the session: a folder has its name.
    void breakSessionFile() const
    {
        std::filesystem::remove(sessionFile());
        std::filesystem::create_directory(sessionFile());
    }

    ContentView& view() { return *view_; }
    const WorkspaceState& state() { return view_->state(); }
    [[nodiscard]] std::string sessionFile() const { return folder.file("Corvane/session-v1.json"); }
    [[nodiscard]] std::vector<std::string> names(const std::string& inFolder) const { return folder.names(inFolder); }

private:
    std::mt19937 random_{7};
    std::unique_ptr<SessionStore> sessions_;
    std::unique_ptr<ContentView> view_;
};

} // namespace corvane::test
