#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// RFC 4648 with padding, without line breaks.
[[nodiscard]] std::string base64Encoded(std::string_view bytes);

/// The bytes of a padded text; none for anything else.
[[nodiscard]] std::optional<std::string> base64Decoded(std::string_view text);

} // namespace corvane
