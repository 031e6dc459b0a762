// soak edits ROUNDS | kills ROUNDS: drives the controller for so long and ends with an error at the first thing that is
// not as it should be. `edits` watches the memory, `kills` ends the process at any moment and restores.

#include "import/project_loading.h"
#include "session/saved_session.h"
#include "support/child_process.h"
#include "support/documents.h"
#include "support/test_window.h"

#include <algorithm>
#include <charconv>
#include <csignal>
#include <fstream>
#include <iostream>
#include <set>

namespace {

using namespace corvane;
using test::startChild;
using test::statusOf;
using test::TestWindow;

void require(bool kept, const std::string& promise)
{
    if (!kept)
        throw std::runtime_error("Not so: " + promise);
}

/// Kilobytes of memory that the process holds.
long residentMemory()
{
    std::ifstream status("/proc/self/statm");
    long size = 0;
    long resident = 0;
    status >> size >> resident;
    return resident * ::sysconf(_SC_PAGESIZE) / 1024;
}

/// One round of a person at work. The history keeps to about `longest` revisions: stepping back and generating drops
/// what came later.
void work(TestWindow& window, std::mt19937& random, std::size_t longest)
{
    window.view().edit([&](WorkspaceState& state) {
        state.settings.mainShare = static_cast<double>(10 + random() % 81);
        state.settings.openingEnabled = random() % 2 == 0;
        state.settings.openingCamera = "A";
        state.settings.openingSeconds = static_cast<double>(1 + random() % 9);
    });
    while (!window.state().settings.sections.empty())
        window.view().removeSection(0); // of a round that was cut short
    for (auto back = window.state().history.items.size() < longest ? random() % 3 : longest / 2; back > 0; --back)
        window.view().stepBack();
    window.view().generateRoughEdit();
    window.view().stepBack();
    window.view().stepForward();
    if (random() % 4 == 0) {
        window.view().addSection();
        window.view().removeSection(0);
    }
    if (random() % 4 == 0) {
        window.view().hold({random() % 9});
        window.view().undo();
        window.view().undo();
        window.view().redo();
    }
    require(!window.state().error, window.state().error.value_or(""));
    require(!window.state().sessionSaveError, window.state().sessionSaveError.value_or(""));
}

/// The stored file is a session of the project that validates against it.
SavedEditSession storedSession(const TestWindow& window)
{
    SavedEditSession session = decodeSession(readFile(window.sessionFile()));
    validateSession(session, buildEngine(session.sourceXML));
    return session;
}

void edits(int rounds)
{
    TestWindow window;
    window.view().importXML(test::document());
    std::mt19937 random(1);
    long before = 0;
    for (int round = 0; round < rounds; ++round) {
        work(window, random, 40);
        if (round == rounds / 10)
            before = residentMemory();
    }
    require(storedSession(window).settings == window.state().settings, "the last change is stored");
    const long growth = residentMemory() - before;
    std::cout << rounds << " rounds, from a tenth of them on " << growth << " kB more\n";
    // In a few rounds an allocator still fills its shelves, one that looks for errors above all.
    require(rounds < 1000 || growth < 2048, "memory does not grow with the rounds");
}

void kills(int rounds)
{
    TestWindow window;
    window.importAndGenerate(test::document());
    window.quit();
    std::mt19937 random(2);
    std::set<double> shares;
    for (int round = 0; round < rounds; ++round) {
        const pid_t child = startChild([&] {
            std::mt19937 own(static_cast<unsigned>(round));
            window.start();
            window.view().windowAppeared();
            for (;;)
                work(window, own, 10);
        });
        ::usleep(static_cast<useconds_t>(2000 + random() % 60000));
        ::kill(child, SIGKILL);
        require(WIFSIGNALED(statusOf(child)), "the process works until it is killed");
        window.start();
        window.view().windowAppeared();
        require(!window.state().error, "a restore after a kill says nothing");
        require(window.state().loaded && !window.state().history.items.empty(), "the session is there after a kill");
        shares.insert(window.state().settings.mainShare);
        require(window.names("Corvane").size() == 1, "what was abandoned is taken away");
        window.quit();
    }
    std::cout << rounds << " kills, found " << shares.size() << " different settings again\n";
}

} // namespace

int main(int count, char** arguments)
try {
    const std::string kind = count > 1 ? arguments[1] : "";
    const std::string_view number = count > 2 ? arguments[2] : "";
    int rounds = 0;
    std::from_chars(number.data(), number.data() + number.size(), rounds);
    if (rounds < 10 || (kind != "edits" && kind != "kills")) {
        std::cerr << "soak edits|kills ROUNDS (10 or more)\n";
        return 2;
    }
    kind == "edits" ? edits(rounds) : kills(rounds);
    return 0;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
