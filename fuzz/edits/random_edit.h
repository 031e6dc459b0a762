#pragma once

#include "fuzz/byte_draws.h"

#include <cstddef>
#include <string>

namespace corvane::test {

/// The way of a document by chance from its bytes to a written edit.
struct RandomEdit {
    std::string broken;    ///< the promise that did not hold; empty when all did
    std::string refusal;   ///< what the program refused it with; empty when an edit was written
    std::size_t clips = 0; ///< of the written edit
};

/// Reads a randomDocument(), holds its coverage against single frames, cuts it by settings and draws by chance, writes
/// the edit and reads that back.
[[nodiscard]] RandomEdit makeRandomEdit(ByteDraws& draws);

} // namespace corvane::test
