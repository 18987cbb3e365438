#include "units/date_ranges.h"

#include "platform/time.h"
#include "records/entry_filter.h"
#include "resources/load_text.h"
#include "resources/string_ids.h"
#include "units/date_text.h"

namespace {

std::wstring DayText(const SYSTEMTIME* day) {
    double date = 0;
    return day && SystemTimeToVariantTime(day, &date) ? DateText(date) : std::wstring();
}

} // namespace

SYSTEMTIME* AddDays(SYSTEMTIME* result, LONG days, const SYSTEMTIME* source) {
    constexpr LONGLONG TicksPerDay = 864'000'000'000;
    FILETIME time;
    if (!SystemTimeToFileTime(source, &time))
        return result;
    const auto before = static_cast<LONGLONG>((ULONGLONG{time.dwHighDateTime} << 32) | time.dwLowDateTime);
    const auto ticks = static_cast<ULONGLONG>(before + days * TicksPerDay);
    time.dwLowDateTime = static_cast<DWORD>(ticks);
    time.dwHighDateTime = static_cast<DWORD>(ticks >> 32);
    FileTimeToSystemTime(&time, result);
    return result;
}

DatePeriod DaysUntil(const SYSTEMTIME& now, LONG days) {
    DatePeriod period{now, now};
    AddDays(&period.start, -days, &now);
    return period;
}

DatePeriod MonthBefore(const SYSTEMTIME& now) {
    DatePeriod period{};
    period.start = now;
    period.start.wDay = 1;
    AddDays(&period.end, -1, &period.start);
    period.start = period.end;
    period.start.wDay = 1;
    return period;
}

DatePeriod YearBefore(const SYSTEMTIME& now) {
    DatePeriod period{now, now};
    period.end.wYear = static_cast<WORD>(now.wYear - 1);
    period.end.wMonth = 12;
    period.end.wDay = 31;
    period.start = period.end;
    period.start.wMonth = 1;
    period.start.wDay = 1;
    return period;
}

std::wstring FormatDateRange(CEntryFilter* filter) {
    if (!filter || !filter->HaveDateRange())
        return LoadText(strings::AllDates);
    return DayText(filter->GetStartDate()) + L" - " + DayText(filter->GetEndDate());
}
