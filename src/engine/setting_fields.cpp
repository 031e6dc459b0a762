#include "engine/setting_fields.h"

namespace corvane {

namespace {

bool isWithin(double value, const Limits& limits)
{
    return limits.hold(value);
}

bool isWithin(const std::map<std::string, double, std::less<>>& values, const Limits& limits)
{
    return limits.holdAll(values);
}

/// Fields that are not numbers have no limits.
template <class Value>
bool isWithin(const Value&, const Limits&)
{
    return true;
}

} // namespace

bool areWithinLimits(const EditSettings& settings)
{
    bool within = settings.mainMinimum <= settings.mainMaximum && settings.otherMinimum <= settings.otherMaximum;
    forEachSetting([&](const auto& field) {
        within = within && (field.limits == nullptr || isWithin(settings.*field.member, *field.limits));
    });
    return within;
}

} // namespace corvane
