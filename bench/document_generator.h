#pragma once

#include <cstddef>
#include <string>

namespace corvane::bench {

/// The number of cameras in a generated document.
inline constexpr std::size_t importAngles = 8;

/// A document of about `bytes` bytes that Corvane imports: 60 % are clips in the eight angles of its multicam, 35 % are
/// the assets of these clips, each with a bookmark of 800 bytes, and the rest are formats, the multicam and the project
/// with its markers and keywords. The same size always gives the same document.
[[nodiscard]] std::string importDocument(std::size_t bytes);

} // namespace corvane::bench
