#pragma once

#include <string>

namespace corvane::bench {

enum class FreshWork { parse, import };

/// Seconds that a new process took for one bare parse or one import of the file; reading the file and freeing the
/// document do not count. Fails with std::runtime_error.
[[nodiscard]] double secondsInFreshProcess(FreshWork work, const std::string& file);

/// Seconds from the start of the program, on a new account, to its first painted window. Fails with
/// std::runtime_error.
[[nodiscard]] double secondsToFirstWindow();

} // namespace corvane::bench
