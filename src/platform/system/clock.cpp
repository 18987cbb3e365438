#include "platform/system/clock.h"

#include "platform/system/environment.h"
#include "platform/time.h"

#include <charconv>
#include <ctime>

namespace device {
namespace {

using namespace std::chrono;

struct Clock {
    std::optional<UtcTime> stoppedAt = TheEnvironment().clock;
};

Clock& TheClock() {
    return MadeForEnvironment<Clock>();
}

/// Takes exactly `digits` decimal digits off the front of `text`.
bool TakeNumber(std::string_view& text, std::size_t digits, int& value) {
    if (text.size() < digits || text.find_first_not_of("0123456789") < digits)
        return false;
    std::from_chars(text.data(), text.data() + digits, value);
    text.remove_prefix(digits);
    return true;
}

bool TakeCharacter(std::string_view& text, char character) {
    if (text.empty() || text.front() != character)
        return false;
    text.remove_prefix(1);
    return true;
}

bool TakeFraction(std::string_view& text, int& milliseconds) {
    if (!TakeCharacter(text, '.'))
        return true;
    const std::size_t digits = std::min<std::size_t>(text.find_first_not_of("0123456789"), text.size());
    if (digits == 0 || digits > 3 || !TakeNumber(text, digits, milliseconds))
        return false;
    for (std::size_t i = digits; i < 3; ++i)
        milliseconds *= 10;
    return true;
}

} // namespace

std::optional<UtcTime> ParseUtcTime(std::string_view text) {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int fraction = 0;
    const bool read = TakeNumber(text, 4, year) && TakeCharacter(text, '-') && TakeNumber(text, 2, month)
        && TakeCharacter(text, '-') && TakeNumber(text, 2, day) && TakeCharacter(text, 'T') && TakeNumber(text, 2, hour)
        && TakeCharacter(text, ':') && TakeNumber(text, 2, minute) && TakeCharacter(text, ':')
        && TakeNumber(text, 2, second) && TakeFraction(text, fraction) && text == "Z";
    const year_month_day date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
        std::chrono::day{static_cast<unsigned>(day)}};
    if (!read || !date.ok() || year < 1601 || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return sys_days{date} + hours{hour} + minutes{minute} + seconds{second} + milliseconds{fraction};
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
