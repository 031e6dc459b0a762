#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Base64 text as in RFC 4648, with padding and without line breaks.
[[nodiscard]] std::string base64Encoded(std::string_view bytes);

/// The bytes that a padded Base64 text stands for; none for anything else.
[[nodiscard]] std::optional<std::string> base64Decoded(std::string_view text);

} // namespace corvane
