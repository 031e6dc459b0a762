#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Product details for the owner of the product to replace.
namespace corvane::product {

inline constexpr std::string_view name = "Corvane";
inline constexpr std::string_view website = "https://corvane.example";
inline constexpr std::string_view publisher = "Corvane";

/// The reverse-DNS name of the program on the desktop, for its desktop file, its icon and its name on the bus.
inline constexpr std::string_view desktopID = "example.corvane.Corvane";

inline constexpr std::string_view about = "Corvane creates an editable first pass of your Final Cut Pro multicam "
                                          "project, using your camera preferences and shot lengths.";
inline constexpr std::string_view websiteLink = "Corvane website";
inline constexpr std::string_view contribution =
    "Visit the website to make an optional contribution or share feedback.";
inline constexpr std::string_view noSupport =
    "Contributions support development and do not include additional support. Personalised training and response "
    "times are not guaranteed.";

/// What the bundle says about itself: the values of "CFBundleShortVersionString" and "CFBundleVersion".
struct BundleInfo {
    std::optional<std::string> shortVersion;
    std::optional<std::string> version;
};

/// "Version 0.1 (Beta) (Build 1)".
[[nodiscard]] std::string versionLine(const BundleInfo& bundle);

} // namespace corvane::product
