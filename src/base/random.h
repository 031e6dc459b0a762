#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace corvane {

/// Returns a uniform random number in [0, 1) at each call. Generation takes one as a parameter, so that the same
/// sequence of draws always gives the same cut list.
using RandomNumbers = std::function<double()>;

/// Draws of 53 random bits, scaled by 2^-53, from the system's secure generator. There is no seed, and no draw is
/// recorded.
[[nodiscard]] RandomNumbers secureRandomNumbers();

/// Fills `bytes` from the system's secure generator. Throws PlatformError if the generator fails.
void fillWithRandomBytes(std::span<std::byte> bytes);

} // namespace corvane
