#pragma once

#include "platform/types.h"

#include <string>

class CEntryFilter;

/// `source` moved by whole days, its time of day kept to the millisecond; no daylight saving comes into it. Returns
/// `result`, which may be `source`.
SYSTEMTIME* AddDays(SYSTEMTIME* result, LONG days, const SYSTEMTIME* source);

/// The presets of a custom range.
enum class DatePreset { LastThreeMonths, LastSixMonths, LastTwelveMonths, LastThirtyDays, PreviousMonth, PreviousYear };

struct DatePeriod {
    SYSTEMTIME start;
    SYSTEMTIME end;
};
/// A preset as seen from `now`, whose time of day both ends carry. The last months are 90, 180 and 365 days.
DatePeriod PresetPeriod(DatePreset preset, const SYSTEMTIME& now);

/// Such as "1/1/2008 - 1/20/2008"; "All Dates" where the filter, or no filter, limits nothing.
std::wstring FormatDateRange(CEntryFilter* filter);
