#pragma once

#include "platform/apple_event_descriptor.h"

#include <optional>
#include <string>
#include <string_view>

/// Descriptors as bytes, all numbers big-endian: the type (4 bytes), the shape (1 byte: 0 bytes, 1 list, 2 record), a
/// count of bytes, items or fields (4 bytes), and these. A field is its key (4 bytes) and a descriptor.
namespace corvane {

/// Levels of descriptors within descriptors that are written and read.
constexpr unsigned deepestNesting = 32;

/// Fails with PlatformError beyond the deepest nesting, and where a count exceeds 32 bits.
[[nodiscard]] std::string encodedDescriptor(const AppleEventDescriptor& descriptor);

/// Whatever the bytes are: the descriptor that they encode, whole and without a remainder, or none. Refused are counts
/// that the bytes cannot hold, types in the wrong shape, specifiers that are incomplete and keys that occur twice.
[[nodiscard]] std::optional<AppleEventDescriptor> decodedDescriptor(std::string_view bytes);

} // namespace corvane
