#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// The "file:///…" text of an absolute path, byte for byte; a path that ends in "/" names a folder.
[[nodiscard]] std::string fileURLText(std::string_view path);

/// The path of a file on this computer. None for another scheme or host, a relative path, a query or fragment, bytes
/// that a URL must not contain, an invalid escape, and the escapes "%00" and "%2F", which no file name can contain.
[[nodiscard]] std::optional<std::string> pathOfFileURL(std::string_view url);

} // namespace corvane
