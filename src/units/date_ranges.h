#pragma once

#include "platform/types.h"

#include <string>

class CEntryFilter;

/// `source` moved by whole days, its time of day kept to the millisecond; no daylight saving comes into it. Returns
/// `result`, which may be `source`.
SYSTEMTIME* AddDays(SYSTEMTIME* result, LONG days, const SYSTEMTIME* source);

/// The presets of a custom range: periods as seen from `now`, whose time of day both ends carry.
struct DatePeriod {
    SYSTEMTIME start;
    SYSTEMTIME end;
};
DatePeriod DaysUntil(const SYSTEMTIME& now, LONG days);
DatePeriod MonthBefore(const SYSTEMTIME& now);
DatePeriod YearBefore(const SYSTEMTIME& now);

/// Such as "1/1/2008 - 1/20/2008"; "All Dates" where the filter, or no filter, limits nothing.
std::wstring FormatDateRange(CEntryFilter* filter);
