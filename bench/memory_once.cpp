// corvane_memory_once WORK FOLDER DOCUMENT: does one piece of work in a process of its own and prints the most memory
// that it held until then and what it holds after each step, in bytes: "peak 697000000" and "rest 454000000". FOLDER is
// where the session is; "import" leaves one there for "restore" and "export". parse: reads the document and parses it,
// no more. window: shows an empty window. import: imports the document into it. again: imports the document twice.
// restore: shows the stored session. export: makes an edit of it and exports that.
#include "base/numbers.h"
#include "bench/bare_document.h"
#include "bench/shown_window.h"
#include "platform/files.h"

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string_view>

namespace {

using namespace corvane;

/// A line of what the system knows of this process: "VmHWM" is the peak of what was in memory, "VmRSS" what is.
void print(const char* title, std::string_view name)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (!line.starts_with(name))
            continue;
        const std::size_t from = line.find_first_of("0123456789");
        const auto kilobytes = readInteger(line.substr(from, line.find(' ', from) - from));
        std::cout << title << ' ' << kilobytes.value() * 1024 << std::endl;
    }
}

void require(bool condition, const char* otherwise)
{
    if (!condition)
        throw std::runtime_error(otherwise);
}

class Window {
public:
    explicit Window(const std::string& folder) : window_(folder) { view().windowAppeared(); }

    void importFile(const std::string& document)
    {
        const void* before = view().state().loaded.get(); // a copy would keep it
        window_.session().inbox().setURL(document);
        require(view().state().loaded.get() != before, "The document was not imported.");
    }
    void exportEdit()
    {
        view().generateRoughEdit();
        require(!view().state().cuts().empty(), view().state().error.value_or("No edit was made.").c_str());
        view().exportRoughEdit();
        require(view().state().lastExport.has_value(), "The edit was not exported.");
    }
    void requireProject() { require(view().state().loaded != nullptr, "The session was not restored."); }

    static void rest()
    {
        bench::ShownWindow::paint();
        print("rest", "VmRSS");
    }

private:
    ContentView& view() { return window_.session().view(); }

    bench::ShownWindow window_;
};

void work(std::string_view work, const std::string& folder, const std::string& document)
{
    if (work == "parse") {
        const std::string bytes = readFile(document);
        [[maybe_unused]] const auto parsed = bench::BareDocument::parse(bytes);
        print("rest", "VmRSS");
        return;
    }
    bench::startToolkit();
    Window window(folder);
    if (work == "import" || work == "again") {
        window.importFile(document);
        Window::rest();
    }
    if (work == "again")
        window.importFile(document);
    if (work == "restore" || work == "export")
        window.requireProject();
    if (work == "export")
        window.exportEdit();
    if (work != "import")
        Window::rest();
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 4)
        return std::cerr << "usage: corvane_memory_once WORK FOLDER DOCUMENT\n", EXIT_FAILURE;
    try {
        work(arguments[1], arguments[2], arguments[3]);
        print("peak", "VmHWM");
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        std::_Exit(EXIT_FAILURE);
    }
    std::_Exit(EXIT_SUCCESS); // what ends does not count
}
