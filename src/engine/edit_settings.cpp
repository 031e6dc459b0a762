#include "engine/edit_settings.h"

#include "engine/setting_limits.h"

namespace corvane {

namespace {

double valueFor(const std::map<std::string, double, std::less<>>& values, std::string_view camera, double absent)
{
    const auto found = values.find(camera);
    return found == values.end() ? absent : found->second;
}

} // namespace

double frequencyOf(const std::map<std::string, double, std::less<>>& frequencies, std::string_view camera)
{
    return valueFor(frequencies, camera, usualFrequency);
}

double returnTimeOf(const std::map<std::string, double, std::less<>>& returnTimes, std::string_view camera)
{
    return valueFor(returnTimes, camera, 0);
}

} // namespace corvane
