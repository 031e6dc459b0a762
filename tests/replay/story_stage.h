#pragma once

#include "replay/json_forms.h"
#include "workspace/content_view.h"

#include <filesystem>
#include <map>
#include <set>

namespace corvane::replay {

/// Everything around a window in a story: files in a scratch folder, stored presets, a session file whose writing can
/// be made to fail, answers to dialogs, and a Final Cut that is found or not.
class StoryStage {
public:
    explicit StoryStage(const Json& story);
    StoryStage(const StoryStage&) = delete;
    StoryStage& operator=(const StoryStage&) = delete;
    ~StoryStage();

    [[nodiscard]] ContentView& window() { return *window_; }
    void newWindow();

    [[nodiscard]] const std::string& document(std::size_t index) const { return documents_.at(index); }
    /// Position of the first document with these bytes, or null.
    [[nodiscard]] Json documentPlace(const std::string& bytes) const;
    [[nodiscard]] std::string path(const std::string& name) const { return (folder_ / name).string(); }
    [[nodiscard]] std::vector<std::string> paths(const Json& names) const;
    [[nodiscard]] std::string sessionPath() const { return path("support/session-v1.json"); }
    [[nodiscard]] std::string scratch() const { return folder_.string(); }

    XMLInbox inbox;
    Json answer;   ///< of the next dialog: a path or null
    Json finalCut; ///< as the step gives it
    std::string sessionStore = "works";
    std::string presets; ///< the stored bytes
    std::size_t drawsUsed = 0;
    bool asked = false;
    std::vector<std::string> opened;
    std::vector<WorkspaceServices::Report> waitingReports;

private:
    class AnsweredDialogs;
    class StoredPresets;
    class SessionFileCalls;
    class StagedServices;

    void makeFiles();

    std::filesystem::path folder_;
    std::vector<std::string> documents_;
    std::vector<double> draws_;
    std::unique_ptr<AnsweredDialogs> dialogs_;
    std::unique_ptr<StoredPresets> defaults_;
    std::unique_ptr<SessionFileCalls> sessionCalls_;
    std::unique_ptr<StagedServices> services_;
    std::unique_ptr<SessionStore> sessions_;
    std::unique_ptr<ContentView> window_;
};

/// Runs one step; sets what the step sets of the stage.
void runStep(StoryStage& stage, const Json& step);

/// What can be seen after a step. `steps` are those done so far.
[[nodiscard]] Json snapshot(const StoryStage& stage, const ContentView& window, const Json& steps, std::size_t done);

} // namespace corvane::replay
