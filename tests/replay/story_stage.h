#pragma once

#include "replay/json_forms.h"
#include "support/test_window.h"

namespace corvane::replay {

/// A window with a scratch account, as a story uses it: with the story's documents and draws, folders for exports, and
/// a session file whose writing can be made to fail.
class StoryStage {
public:
    explicit StoryStage(const Json& story);

    test::TestWindow account;
    std::string sessionStore = "works";
    std::size_t drawsUsed = 0;

    [[nodiscard]] ContentView& window() { return account.view(); }
    [[nodiscard]] std::string& presets() { return account.defaults.values["Corvane.savedPresets.v1"]; }
    [[nodiscard]] const std::string& document(std::size_t index) const { return documents_.at(index); }
    /// The index of the first document with these bytes, or null.
    [[nodiscard]] Json documentPlace(const std::string& bytes) const;
    [[nodiscard]] std::string path(const std::string& name) const { return account.folder.file(name); }
    /// The path for a name: docN with any extension is document N, whose file is created when it is first named.
    [[nodiscard]] std::string file(const std::string& name) const;

private:
    /// Writes fail unless the store works. Nothing is synced, because none of the thousands of saves must survive a
    /// crash of the machine.
    struct SessionCalls : FileCalls {
        const std::string* store = nullptr;
        std::ptrdiff_t write(int file, std::span<const std::string_view> parts) override;
        int sync(int) override { return 0; }
    };

    SessionCalls calls_;
    std::vector<std::string> documents_;
    std::vector<double> draws_;
};

/// Runs one step. Afterwards `account` says what it opened and whether it asked.
void runStep(StoryStage& stage, const Json& step);

/// What can be seen after a step. The first `done` of `steps` have been done.
[[nodiscard]] Json snapshot(StoryStage& stage, const Json& steps, std::size_t done);

} // namespace corvane::replay
