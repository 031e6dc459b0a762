#include "base/base64.h"
#include "base/error.h"
#include "engine/generation_inputs.h"
#include "import/project_loading.h"
#include "session/saved_session.h"
#include "session/session_keeper.h"
#include "session/starting_settings.h"
#include "support/documents.h"
#include "support/failing_files.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

const std::string stored = "session-v1.json";
const std::string previous = "session-v1 (previous).json";
const std::string kept = "session-v1 (kept).json";
const std::string previousKept = "session-v1 (previous) (kept).json";

/// A keeper on a folder of its own, and what is on screen.
struct Desk {
    ScratchFolder folder;
    FailingFiles calls;
    SessionStore store{[this] { return folder.path(); }, calls};
    SessionKeeper keeper{store};
    std::shared_ptr<const LoadedDocument> loaded;
    EditSettings settings;
    EditHistory history;

    [[nodiscard]] SessionKeeper::OnScreen onScreen() const { return {loaded.get(), settings, history}; }
    void import(const std::string& xml)
    {
        keeper.keepReplaced(onScreen());
        LoadedProject project = loadProject(xml);
        settings = startingSettings(project.imported, project.engine);
        history = {};
        loaded = std::make_shared<LoadedDocument>(
            LoadedDocument{base64Encoded(xml), std::move(project.imported), std::move(project.engine)});
    }
    void importAndGenerate(const std::string& xml)
    {
        import(xml);
        generate();
    }
    void generate()
    {
        history.append(std::make_shared<EditRevision>(EditRevision{
            randomIdentifiers()(), {}, settings, generateFromSettings(loaded->imported, loaded->engine, settings)}));
    }
    std::optional<std::string> save() { return keeper.save(onScreen()); }
    [[nodiscard]] std::string bytes(const std::string& name) const { return readFile(folder.file(name)); }
    [[nodiscard]] std::string project(const std::string& name) const { return decodeSession(bytes(name)).sourceXML; }
    void put(const std::string& name, std::string_view bytes) const { replaceFile(folder.file(name), {&bytes, 1}); }
};

/// Each call that a save makes fails in turn, on a desk of its own.
void whicheverCallOfASaveFails(
    const std::function<void(Desk&)>& prepare,
    const std::function<void(Desk&, const std::optional<std::string>& refused)>& check)
{
    int calls = 0;
    for (int failing = 0; failing <= calls; ++failing) {
        SCOPED_TRACE(failing);
        Desk desk;
        desk.importAndGenerate(document());
        EXPECT_EQ(desk.save(), std::nullopt);
        prepare(desk);
        desk.calls.calls = 0;
        desk.calls.failing = failing;
        const auto refused = desk.save();
        calls = desk.calls.calls;
        desk.calls.failing = -1;
        check(desk, refused);
    }
    EXPECT_GT(calls, 8);
}

TEST(SessionKeeper, KeepsTheLastGoodFileWhicheverCallFails)
{
    const std::string noSpace = "Session could not be saved: Cannot write session-v1.json: No space left on device.";
    std::string before;
    whicheverCallOfASaveFails(
        [&](Desk& desk) {
            before = desk.bytes(stored);
            desk.settings.mainShare = 10;
        },
        [&](Desk& desk, const auto& refused) {
            EXPECT_EQ(desk.bytes(stored) == before, refused.has_value());
            EXPECT_EQ(refused.value_or(noSpace), noSpace);
            EXPECT_EQ(desk.folder.names(), Names{stored});
            EXPECT_EQ(desk.save(), std::nullopt);
            const auto restored = desk.keeper.restore();
            EXPECT_EQ(restored->settings, desk.settings);
            EXPECT_EQ(restored->history.items.size(), 1U);
        });
}

TEST(SessionKeeper, KeepsAnothersFileOnceWhicheverCallFails)
{
    whicheverCallOfASaveFails(
        [](Desk& desk) { desk.put(stored, "another process was here"); },
        [](Desk& desk, const auto& /*refused*/) {
            EXPECT_EQ(desk.save(), std::nullopt);
            EXPECT_EQ(desk.folder.names(), (Names{kept, stored}));
            EXPECT_EQ(desk.bytes(kept), "another process was here");
        });
}

TEST(SessionKeeper, KeepsEditsThatAnotherReplacedSessionWouldReplace)
{
    for (const bool fullDisk : {false, true}) {
        Desk desk;
        desk.importAndGenerate(document());
        desk.generate();
        (void)desk.save();
        desk.importAndGenerate(document());
        (void)desk.save();
        const std::string twoEdits = desk.bytes(previous);
        desk.calls.full = fullDisk;
        desk.importAndGenerate(otherProject);
        EXPECT_EQ(desk.save().has_value(), fullDisk);
        desk.calls.full = false;
        if (fullDisk) // the session in memory takes the place of the other project, which takes that of the two edits
            desk.keeper.changePlaces(desk.keeper.readPrevious().bytes, desk.onScreen());
        EXPECT_EQ(desk.bytes(previousKept), twoEdits);
        EXPECT_EQ(desk.project(fullDisk ? stored : previous), document());
        EXPECT_EQ(desk.project(fullDisk ? previous : stored), otherProject);
        for (int import = 0; import < 12; ++import)
            desk.importAndGenerate(document());
        EXPECT_EQ(desk.folder.names().size(), fullDisk ? 13U : 12U) << "ten, and what the full disk had stopped";
    }
    Desk desk;
    desk.importAndGenerate(document());
    (void)desk.save();
    const EditSettings settings;
    const EditHistory history;
    for (int start = 0; start < 2; ++start) // with a project, which is not saved
        SessionKeeper(desk.store).keepReplaced({nullptr, settings, history});
    EXPECT_EQ(desk.folder.names(), (Names{previous, stored})) << "the same session is kept once";
}

TEST(SessionKeeper, KeepsThePreviousEditsOnceWhicheverCallFails)
{
    int calls = 1;
    for (int failing = 0; failing < calls; ++failing) {
        SCOPED_TRACE(failing);
        Desk desk;
        desk.importAndGenerate(document());
        (void)desk.save();
        desk.importAndGenerate(otherProject);
        (void)desk.save();
        desk.calls.calls = 0;
        desk.calls.failing = failing;
        desk.import(document());
        calls = desk.calls.calls;
        desk.calls.failing = -1;
        const auto told = desk.save();
        const bool done = desk.project(previous) == otherProject;
        EXPECT_EQ(told.has_value(), !done);
        EXPECT_TRUE(told.value_or("The previous session could not be kept: ")
                        .starts_with("The previous session could not be kept: "));
        EXPECT_EQ(desk.project(done ? previousKept : previous), document());
        EXPECT_EQ(desk.project(done ? previous : kept), otherProject);
        EXPECT_EQ(desk.folder.names().size(), 3U);
    }
    EXPECT_GT(calls, 4);
}

} // namespace
} // namespace corvane
