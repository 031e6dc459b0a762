#pragma once

#include <optional>
#include <string>

namespace corvane {

/// The path of a file on this computer, if that is what the URI names. Bytes that are no text stay as they are; a URI
/// that only the toolkit can read gives the path that the toolkit gives. None for any other text.
[[nodiscard]] std::optional<std::string> pathOfURI(const std::string& uri);

} // namespace corvane
