#include "fuzz/edits/random_edit.h"

#include <gtest/gtest.h>

#include <iostream>
#include <random>

namespace corvane {
namespace {

constexpr std::uint64_t seed = 20'261'125; // of the first document; each further one has the next
constexpr std::uint64_t documentCount = 4'000;

TEST(RandomEdits, GoFromDocumentToWrittenEditAndBack)
{
    std::uint64_t written = 0;
    std::uint64_t cut = 0;
    for (std::uint64_t number = 0; number < documentCount; ++number) {
        std::mt19937_64 random(seed + number);
        std::string bytes(2000, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() & 0xFFU);
        test::ByteDraws draws(bytes);
        const test::RandomEdit edit = test::makeRandomEdit(draws);
        ASSERT_EQ(edit.broken, "") << "seed " << seed << ", document " << number;
        written += edit.clips > 0 ? 1U : 0U;
        cut += edit.clips > 1 ? 1U : 0U;
    }
    std::cout << documentCount << " documents from seed " << seed << ": " << written << " written, " << cut
              << " of them cut\n";
    EXPECT_GE(written, documentCount / 3);
    EXPECT_GE(cut, documentCount / 5);
}

} // namespace
} // namespace corvane
