#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// A UUID, as sixteen bytes.
struct Identifier {
    std::array<std::uint8_t, 16> bytes{};

    auto operator<=>(const Identifier&) const = default;

    /// Upper-case hexadecimal digits in groups of 8-4-4-4-12 joined by hyphens.
    [[nodiscard]] std::string text() const;
    /// The 32 upper-case digits without the hyphens.
    [[nodiscard]] std::string digits() const;
    /// Reads the grouped form in either case; none for anything else.
    [[nodiscard]] static std::optional<Identifier> parse(std::string_view text);
};

/// Returns a new identifier at each call.
using IdentifierSource = std::function<Identifier()>;

/// Random (version 4) identifiers from the system's secure generator.
[[nodiscard]] IdentifierSource randomIdentifiers();

} // namespace corvane
