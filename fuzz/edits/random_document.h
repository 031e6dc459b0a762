#pragma once

#include "fuzz/byte_draws.h"

#include <string>

namespace corvane::test {

/// A random multicam project, usually one that Final Cut could export: all frame rates, footage that starts late and
/// stops early, nested and compound clips, audio separate from the video, and everything that can be on a multicam
/// clip. Every time is a multiple of 1/240000 s. Annotations and connected items have unique names. Occasionally
/// something in it is not supported.
[[nodiscard]] std::string randomDocument(ByteDraws& draws);

} // namespace corvane::test
