#pragma once

#include <cstddef>
#include <string>

namespace corvane::bench {

/// The number of cameras in a generated document.
inline constexpr std::size_t importAngles = 8;

/// Whether cameras stop recording now and then; without, any edit can be made of the project.
enum class Gaps { some, none };

/// A document that Corvane imports, of about `bytes` bytes: 60 % of them are clips inside the eight angles of its
/// multicam, 35 % the assets that these clips refer to, each with a bookmark of 800 bytes, the rest formats, the
/// multicam and the project with its markers and keywords. The same size gives the same document.
[[nodiscard]] std::string importDocument(std::size_t bytes, Gaps gaps = Gaps::some);

} // namespace corvane::bench
