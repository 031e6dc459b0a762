#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace corvane {

/// Gives one uniform double in [0, 1) at each call. Generation takes its draws from one of these, so that a list of
/// draws gives the same cut list again.
using UniformDraws = std::function<double()>;

/// Draws of 53 random bits scaled by 2^-53 from the system's secure generator; nothing is seeded and nothing kept.
[[nodiscard]] UniformDraws secureDraws();

/// Fills `bytes` from the system's secure generator. Fails with PlatformError where the system has none to give.
void fillWithRandomBytes(std::span<std::byte> bytes);

} // namespace corvane
