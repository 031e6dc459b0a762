#include "base/timestamp.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <string_view>

namespace corvane {

namespace {

using namespace std::chrono;

constexpr sys_seconds referenceDate = sys_days(year(2001) / January / 1);
constexpr sys_seconds earliest = sys_days(year(0) / January / 1);
constexpr sys_seconds latest = sys_days(year(9999) / December / 31) + hours(24) - seconds(1);

void append(std::string& text, std::int64_t number, std::size_t width, std::string_view after)
{
    const std::string digits = std::to_string(number);
    text.append(width - std::min(width, digits.size()), '0').append(digits).append(after);
}

sys_seconds momentOf(const Timestamp& time)
{
    const auto lowest = static_cast<double>((earliest - referenceDate).count());
    const auto highest = static_cast<double>((latest - referenceDate).count());
    const double inside = std::isnan(time.seconds) ? lowest : std::clamp(time.seconds, lowest, highest);
    return referenceDate + std::chrono::seconds(static_cast<std::int64_t>(std::floor(inside)));
}

} // namespace

Timestamp Timestamp::now()
{
    return {duration<double>(system_clock::now() - referenceDate).count()};
}

std::string Timestamp::isoText() const
{
    const sys_seconds moment = momentOf(*this);
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);

    std::string text;
    append(text, static_cast<int>(date.year()), 4, "-");
    append(text, static_cast<unsigned>(date.month()), 2, "-");
    append(text, static_cast<unsigned>(date.day()), 2, "T");
    append(text, time.hours().count(), 2, ":");
    append(text, time.minutes().count(), 2, ":");
    append(text, time.seconds().count(), 2, "Z");
    return text;
}

std::string Timestamp::localText() const
{
    // Not through system_clock: its nanoseconds end in the year 2262.
    const std::time_t moment = momentOf(*this).time_since_epoch().count();
    std::tm local{};
    if (::localtime_r(&moment, &local) == nullptr)
        return isoText();
    std::string text;
    append(text, local.tm_year + 1900, 4, "-");
    append(text, local.tm_mon + 1, 2, "-");
    append(text, local.tm_mday, 2, " ");
    append(text, local.tm_hour, 2, ":");
    append(text, local.tm_min, 2, ":");
    append(text, local.tm_sec, 2, "");
    return text;
}

} // namespace corvane
