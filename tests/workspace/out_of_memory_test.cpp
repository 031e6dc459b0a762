#include "support/documents.h"
#include "support/test_window.h"
#include "workspace/captions.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <set>

namespace {

/// The call of operator new that fails, counted from the next one; none when it is negative.
long failing = -1;

void* allocated(std::size_t size)
{
    if (failing >= 0 && failing-- == 0)
        throw std::bad_alloc();
    void* memory = std::malloc(size == 0 ? 1 : size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size)
{
    return allocated(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return allocated(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace corvane {
namespace {

using namespace test;
using Operation = void (*)(TestWindow&);

const std::string imported = document();
const std::vector<std::size_t> second = {1};

/// Nothing is said, or what is missing. Files are read by calls that have words of their own.
bool tellsOfMemory(const std::string& said)
{
    const auto says = [&](const char* words) { return said.find(words) != std::string::npos; };
    return said.empty() || says("There is not enough memory to ") || says("Cannot allocate memory.");
}

/// No file has an unexpected name, and each export ends as it should.
void expectWholeFiles(TestWindow& window)
{
    for (const std::string& name : window.names("Corvane"))
        EXPECT_TRUE(std::set<std::string>({"session-v1.json", "session-v1 (previous).json", "session-v1 (kept).json"})
                        .contains(name))
            << name;
    for (const std::string& name : window.names("exports")) {
        const std::string text = readFile(window.folder.file("exports/" + name));
        EXPECT_TRUE(text.ends_with(name.ends_with(".fcpxml") ? "</fcpxml>\n" : "\n")) << name;
    }
}

/// Each call in turn fails in an operation on a window with an edit. Returns how many there are.
int failAtEachCall(Operation operation)
{
    for (int call = 0;; ++call) {
        TestWindow window;
        window.dialogs.answer = window.folder.file("exports");
        window.importAndGenerate(imported);
        window.view().hold({0});
        const WorkspaceState before = window.state();
        failing = call;
        operation(window);
        const bool done = failing >= 0;
        failing = -1;
        const WorkspaceState& after = window.state();
        const std::string said = after.error.value_or("") + after.sessionSaveError.value_or("");
        EXPECT_TRUE(tellsOfMemory(said)) << said;
        if (after.error) {
            EXPECT_EQ(after.loaded, before.loaded) << call << ": " << said;
            EXPECT_EQ(after.settings, before.settings) << call;
            EXPECT_EQ(after.history, before.history) << call;
            EXPECT_EQ(after.preview, before.preview) << call;
            EXPECT_EQ(undoText(window.view()), "Undo Hold") << call;
        }
        expectWholeFiles(window);
        if (!said.empty()) {
            const auto name = after.loaded->imported.name;
            const auto revisions = after.history.items.size();
            window.view().saveAgain();
            window.restart();
            EXPECT_EQ(window.state().loaded->imported.name, name) << call << ": what was saved is what is on screen";
            EXPECT_EQ(window.state().history.items.size(), revisions) << call;
        }
        if (done || ::testing::Test::HasFailure())
            return call;
    }
}

TEST(OutOfMemory, IsToldWhicheverAllocationFails)
{
    EXPECT_GT(failAtEachCall([](TestWindow& window) { window.view().importXML(otherProject); }), 100) << "import";
    EXPECT_GT(failAtEachCall([](TestWindow& window) { window.view().generateRoughEdit(); }), 50) << "generate, save";
    EXPECT_GT(failAtEachCall([](TestWindow& window) { window.view().exportRoughEdit(); }), 100) << "export";
    EXPECT_GT(
        failAtEachCall([](TestWindow& window) {
            window.view().edit([](WorkspaceState& state) { state.presetName = "Two cameras and the pulpit"; });
            window.view().savePreset(ContentView::PresetSave::asNew);
        }),
        30)
        << "save a preset";
    EXPECT_GT(failAtEachCall([](TestWindow& window) { window.view().hold(second); }), 50) << "hold, save";
    EXPECT_GT(failAtEachCall([](TestWindow& window) { window.view().undo(); }), 20) << "restore, save";
}

TEST(OutOfMemory, LeavesTheStoredSessionThatCannotBeRestored)
{
    TestWindow window;
    window.importAndGenerate(imported);
    const std::string stored = readFile(window.sessionFile());
    bool done = false;
    for (int call = 0; !done && !HasFailure(); ++call) {
        window.quit();
        window.start();
        failing = call;
        window.view().windowAppeared();
        done = failing >= 0;
        failing = -1;
        const WorkspaceState& after = window.state();
        EXPECT_TRUE(tellsOfMemory(after.error.value_or("") + after.sessionSaveError.value_or("")));
        EXPECT_TRUE(after.error || after.loaded) << call;
        EXPECT_EQ(readFile(window.sessionFile()), stored) << call;
    }
}

} // namespace
} // namespace corvane
