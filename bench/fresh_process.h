#pragma once

#include <string>

namespace corvane::bench {

enum class FreshWork { parse, import };

/// The seconds that a new process takes for one bare parse or one import of the file, without reading the file and
/// freeing the document. Throws std::runtime_error.
[[nodiscard]] double secondsInFreshProcess(FreshWork work, const std::string& file);

/// The seconds from the start of the program, for a new user, to its first painted window. Throws std::runtime_error.
[[nodiscard]] double secondsToFirstWindow();

} // namespace corvane::bench
