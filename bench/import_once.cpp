// corvane_import_once parse|import FILE reads a file, parses or imports it once, and prints how long that took in
// nanoseconds. It ends without freeing the document, so that only the reading is measured, in a cold process.
#include "bench/bare_document.h"
#include "bench/stopwatch.h"
#include "import/cut_engine.h"
#include "import/project_loading.h"
#include "platform/files.h"

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string_view>

namespace {

[[noreturn]] void printAndEnd(double seconds)
{
    std::cout << static_cast<std::int64_t>(seconds * 1e9) << '\n' << std::flush;
    std::_Exit(EXIT_SUCCESS);
}

} // namespace

int main(int count, char** arguments)
{
    const std::string_view work = count == 3 ? arguments[1] : "";
    try {
        if (work == "parse" || work == "import") {
            const std::string bytes = corvane::readFile(arguments[2]);
            const corvane::bench::Stopwatch watch;
            if (work == "parse") {
                [[maybe_unused]] const auto document = corvane::bench::BareDocument::parse(bytes);
                printAndEnd(watch.seconds());
            }
            [[maybe_unused]] const auto project = corvane::loadProject(bytes);
            printAndEnd(watch.seconds());
        }
        std::cerr << "usage: corvane_import_once parse|import FILE\n";
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
    }
    return EXIT_FAILURE;
}
