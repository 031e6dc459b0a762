// Writes a generated document: corvane_bench_documents MEGABYTES FILE [without-gaps].
#include "base/numbers.h"
#include "bench/document_generator.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

int main(int count, char** arguments)
{
    const auto megabytes = count == 3 || count == 4 ? corvane::readInteger(arguments[1]) : std::nullopt;
    if (!megabytes || *megabytes < 1 || *megabytes > 1000) {
        std::cerr << "usage: corvane_bench_documents MEGABYTES FILE [without-gaps]\n";
        return EXIT_FAILURE;
    }
    std::ofstream file(arguments[2], std::ios::binary);
    const auto gaps = count == 4 ? corvane::bench::Gaps::none : corvane::bench::Gaps::some;
    file << corvane::bench::importDocument(static_cast<std::size_t>(*megabytes) * 1'000'000, gaps);
    file.close();
    if (!file) {
        std::cerr << arguments[2] << " cannot be written.\n";
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
