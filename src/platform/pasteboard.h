#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The type under which a pasteboard offers files.
constexpr std::string_view fileURLPasteboardType = "public.file-url";

/// What a drag carries.
class Pasteboard {
public:
    Pasteboard() = default;
    Pasteboard(const Pasteboard&) = delete;
    Pasteboard& operator=(const Pasteboard&) = delete;
    virtual ~Pasteboard() = default;

    /// The types on offer. That a type is listed does not promise that there are data.
    [[nodiscard]] virtual std::vector<std::string> types() const = 0;
    [[nodiscard]] virtual std::optional<std::string> data(const std::string& type) const = 0;
    /// The paths of all objects that are files, in order; other locations are left out.
    [[nodiscard]] virtual std::vector<std::string> fileURLs() const = 0;
};

} // namespace corvane
