#pragma once

#include "import/imported_project.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The angle's name, with its camera names in brackets where it has any; the id itself when it is unknown.
[[nodiscard]] std::string angleLabel(const ImportedProject& project, std::string_view id);

/// The angle's name alone; the id when it is unknown.
[[nodiscard]] std::string angleName(const ImportedProject& project, std::string_view id);

/// "Wide", "Wide and Choir", "Wide, Choir and Pulpit".
[[nodiscard]] std::string joinedNames(const std::vector<std::string>& names);

} // namespace corvane
