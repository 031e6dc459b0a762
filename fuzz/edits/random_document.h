#pragma once

#include "fuzz/byte_draws.h"

#include <string>

namespace corvane::test {

/// A multicam project by chance, most of them such as Final Cut would export: all frame rates, footage that starts
/// late and stops early, nested and compound clips, sound apart from the picture, everything that hangs on a multicam
/// clip. Every time is a whole number of 1/240000 s. Annotations and connected items have a "name" of their own.
/// Now and then something in it is not supported.
[[nodiscard]] std::string randomDocument(ByteDraws& draws);

} // namespace corvane::test
