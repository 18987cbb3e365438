#include "platform/time.h"

#include "platform/system/clock.h"

#include <chrono>
#include <cmath>
#include <optional>

namespace {

using namespace std::chrono;

using Ticks = duration<std::int64_t, std::ratio<1, 10'000'000>>;

constexpr sys_days FileTimeEpoch{year{1601} / January / 1};
constexpr sys_days OleEpoch{year{1899} / December / 30};
constexpr int FirstFileTimeYear = 1601;
constexpr int LastFileTimeYear = 30827;
constexpr int FirstOleYear = 100;
constexpr int LastOleYear = 9999;
constexpr double SecondsOfDay = 86400.0;
constexpr double FirstOleDay = static_cast<double>((sys_days{year{FirstOleYear} / January / 1} - OleEpoch).count());
constexpr double LastOleDay = static_cast<double>((sys_days{year{LastOleYear} / December / 31} - OleEpoch).count());

/// Nothing for a day that no calendar has or a time that no clock shows.
std::optional<sys_days> DayOf(const SYSTEMTIME& time) {
    const year_month_day date{year{time.wYear}, month{time.wMonth}, day{time.wDay}};
    const bool clock = time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60 && time.wMilliseconds < 1000;
    if (time.wYear > LastFileTimeYear || time.wMonth > 12 || time.wDay > 31 || !date.ok() || !clock)
        return std::nullopt;
    return sys_days{date};
}

seconds SecondsIntoDay(const SYSTEMTIME& time) {
    return hours{time.wHour} + minutes{time.wMinute} + seconds{time.wSecond};
}

std::uint64_t Joined(const FILETIME& ticks) {
    return (static_cast<std::uint64_t>(ticks.dwHighDateTime) << 32U) | ticks.dwLowDateTime;
}

} // namespace

BOOL SystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* ticks) {
    const auto date = time != nullptr && ticks != nullptr ? DayOf(*time) : std::nullopt;
    if (!date || time->wYear < FirstFileTimeYear)
        return FALSE;
    const Ticks count = Ticks{days{*date - FileTimeEpoch}} + SecondsIntoDay(*time) + milliseconds{time->wMilliseconds};
    const auto joined = static_cast<std::uint64_t>(count.count());
    ticks->dwLowDateTime = static_cast<DWORD>(joined);
    ticks->dwHighDateTime = static_cast<DWORD>(joined >> 32U);
    return TRUE;
}

BOOL FileTimeToSystemTime(const FILETIME* ticks, SYSTEMTIME* time) {
    if (ticks == nullptr || time == nullptr || Joined(*ticks) > static_cast<std::uint64_t>(INT64_MAX))
        return FALSE;
    const Ticks count{static_cast<std::int64_t>(Joined(*ticks))};
    const days day = floor<days>(count);
    const sys_days date = FileTimeEpoch + day;
    if (static_cast<int>(year_month_day{date}.year()) > LastFileTimeYear)
        return FALSE;
    *time = device::CalendarTime(date + floor<milliseconds>(count - day));
    return TRUE;
}

LONG CompareFileTime(const FILETIME* first, const FILETIME* second) {
    const std::uint64_t left = Joined(*first);
    const std::uint64_t right = Joined(*second);
    if (left == right)
        return 0;
    return left < right ? -1 : 1;
}

INT SystemTimeToVariantTime(const SYSTEMTIME* time, double* date) {
    const auto day = time != nullptr && date != nullptr ? DayOf(*time) : std::nullopt;
    if (!day || time->wYear < FirstOleYear || time->wYear > LastOleYear)
        return FALSE;
    const auto whole = static_cast<double>((*day - OleEpoch).count());
    const double fraction = static_cast<double>(SecondsIntoDay(*time).count()) / SecondsOfDay;
    *date = whole < 0 ? whole - fraction : whole + fraction;
    return TRUE;
}

INT VariantTimeToSystemTime(double date, SYSTEMTIME* time) {
    const double whole = std::trunc(date);
    // Written so that what is not a number fails.
    if (time == nullptr || !(whole >= FirstOleDay && whole <= LastOleDay))
        return FALSE;
    const seconds ofDay{std::llround(std::fabs(date - whole) * SecondsOfDay)};
    // A fraction that rounds up to a whole day is the next day's midnight.
    const days carry = floor<days>(ofDay);
    const sys_days day = OleEpoch + days{static_cast<int>(whole)} + carry;
    if (static_cast<int>(year_month_day{day}.year()) > LastOleYear)
        return FALSE;
    *time = device::CalendarTime(day + (ofDay - carry));
    return TRUE;
}
