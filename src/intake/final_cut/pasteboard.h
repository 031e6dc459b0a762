#pragma once

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The type under which a pasteboard offers files.
constexpr std::string_view fileURLPasteboardType = "public.file-url";

/// The source of a drag was asked for what it offers and did not answer.
class NoPasteboardAnswer : public std::exception {};

/// What a drag carries. Its source is another program: to ask it for data can take seconds. It is asked for each type
/// once at most, and for nothing any more after it did not answer.
class Pasteboard {
public:
    Pasteboard() = default;
    Pasteboard(const Pasteboard&) = delete;
    Pasteboard& operator=(const Pasteboard&) = delete;
    virtual ~Pasteboard() = default;

    /// The types on offer, for which the source is not asked. That a type is listed does not promise that there are
    /// data.
    [[nodiscard]] virtual std::vector<std::string> types() const = 0;
    /// None for a type that is not on offer. Throws NoPasteboardAnswer.
    [[nodiscard]] virtual std::optional<std::string> data(const std::string& type) const = 0;
    /// The paths of all objects that are files, in order; other locations are left out. Throws NoPasteboardAnswer.
    [[nodiscard]] virtual std::vector<std::string> fileURLs() const = 0;
};

} // namespace corvane
