#include "platform/system/clock.h"

#include "platform/system/environment.h"
#include "platform/time.h"

#include <ctime>
#include <regex>
#include <string>

namespace device {
namespace {

using namespace std::chrono;

struct Clock {
    std::optional<UtcTime> stoppedAt = TheEnvironment().clock;
};

Clock& TheClock() {
    return MadeForEnvironment<Clock>();
}

} // namespace

std::optional<UtcTime> ParseUtcTime(std::string_view text) {
    static const char* const Pattern = "([0-9]{4})-([0-9]{2})-([0-9]{2})T([0-9]{2}):([0-9]{2}):([0-9]{2})"
                                       "([.][0-9]{1,3})?Z";
    std::cmatch parts;
    if (!std::regex_match(text.data(), text.data() + text.size(), parts, std::regex{Pattern}))
        return std::nullopt;
    const auto number = [&parts](std::size_t part) { return std::stoi(parts[part]); };
    const year_month_day date{
        year{number(1)}, month{static_cast<unsigned>(number(2))}, day{static_cast<unsigned>(number(3))}};
    if (!date.ok() || number(1) < 1601 || number(4) > 23 || number(5) > 59 || number(6) > 59)
        return std::nullopt;
    const std::string fraction = parts[7].length() == 0 ? "0" : (parts[7].str() + "00").substr(1, 3);
    return sys_days{date} + hours{number(4)} + minutes{number(5)} + seconds{number(6)}
    + milliseconds{std::stoi(fraction)};
}

UtcTime UtcNow() {
    if (const auto stopped = TheClock().stoppedAt)
        return *stopped;
    return floor<milliseconds>(system_clock::now());
}

void StopClock(UtcTime time) {
    TheClock().stoppedAt = time;
}

SYSTEMTIME CalendarTime(UtcTime time) {
    const auto date = floor<days>(time);
    const year_month_day day{date};
    const hh_mm_ss ofDay{time - date};
    return {
        .wYear = static_cast<WORD>(static_cast<int>(day.year())),
        .wMonth = static_cast<WORD>(static_cast<unsigned>(day.month())),
        .wDayOfWeek = static_cast<WORD>(weekday{date}.c_encoding()),
        .wDay = static_cast<WORD>(static_cast<unsigned>(day.day())),
        .wHour = static_cast<WORD>(ofDay.hours().count()),
        .wMinute = static_cast<WORD>(ofDay.minutes().count()),
        .wSecond = static_cast<WORD>(ofDay.seconds().count()),
        .wMilliseconds = static_cast<WORD>(ofDay.subseconds().count()),
    };
}

SYSTEMTIME LocalCalendarTime(UtcTime time) {
    const auto whole = floor<seconds>(time);
    const std::time_t moment = whole.time_since_epoch().count();
    std::tm local{};
    // localtime_r alone need not look at TZ again.
    tzset();
    if (localtime_r(&moment, &local) == nullptr)
        return CalendarTime(time);
    return CalendarTime(time + seconds{local.tm_gmtoff});
}

} // namespace device

void GetSystemTime(SYSTEMTIME* time) {
    if (time != nullptr)
        *time = device::CalendarTime(device::UtcNow());
}

void GetLocalTime(SYSTEMTIME* time) {
    if (time != nullptr)
        *time = device::LocalCalendarTime(device::UtcNow());
}
