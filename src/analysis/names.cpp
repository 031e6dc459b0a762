#include "analysis/names.h"

#include <algorithm>

namespace corvane {

std::string angleLabel(const ImportedProject& project, std::string_view id)
{
    const auto angle = std::ranges::find(project.angles, id, &ImportedAngle::id);
    if (angle == project.angles.end())
        return std::string(id);
    return angle->cameras.empty() ? angle->name : angle->name + " (" + angle->cameras + ")";
}

std::string angleName(const ImportedProject& project, std::string_view id)
{
    const auto angle = std::ranges::find(project.angles, id, &ImportedAngle::id);
    return angle == project.angles.end() || angle->name.empty() ? std::string(id) : angle->name;
}

std::string joinedNames(const std::vector<std::string>& names)
{
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
    return text;
}

} // namespace corvane
