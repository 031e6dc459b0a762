#pragma once

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The type as which a pasteboard offers files.
constexpr std::string_view fileURLPasteboardType = "public.file-url";

/// Thrown when the source of a drag was asked for data and did not answer.
class NoPasteboardAnswer : public std::exception {};

/// What is being dragged. The source is another program, and asking it for data can take seconds. So it is asked at
/// most once for each type, and never again once it has not answered.
class Pasteboard {
public:
    Pasteboard() = default;
    Pasteboard(const Pasteboard&) = delete;
    Pasteboard& operator=(const Pasteboard&) = delete;
    virtual ~Pasteboard() = default;

    /// The types offered, which are known without asking the source. A listed type may still have no data.
    [[nodiscard]] virtual std::vector<std::string> types() const = 0;
    /// None for a type that is not offered. Throws NoPasteboardAnswer.
    [[nodiscard]] virtual std::optional<std::string> data(const std::string& type) const = 0;
    /// The paths of all items that are files, in order; other locations are skipped. Throws NoPasteboardAnswer.
    [[nodiscard]] virtual std::vector<std::string> filePaths() const = 0;
};

} // namespace corvane
