#pragma once

#include "import/imported_project.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The angle's name with its camera names, if any, in brackets; the id itself if the angle is unknown.
[[nodiscard]] std::string angleLabel(const ImportedProject& project, std::string_view id);

/// The angle's name alone; the id itself if the angle is unknown.
[[nodiscard]] std::string angleName(const ImportedProject& project, std::string_view id);

/// "Wide", "Wide and Choir", "Wide, Choir and Pulpit".
[[nodiscard]] std::string joinedNames(const std::vector<std::string>& names);

} // namespace corvane
