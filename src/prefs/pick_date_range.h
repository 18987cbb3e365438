#pragma once

#include "platform/types.h"

class CEntryFilter;

/// Lets the user choose the first and the last day of a range, beginning with those of `start` and `end` (local time,
/// both must hold dates). True after Done: the range then goes from 00:00 of the first day to 23:59 of the last one.
/// After false what `start` and `end` hold is of no use: it may be a range that was refused.
bool PickDateRange(SYSTEMTIME* start, SYSTEMTIME* end);

/// Lets the user choose the custom range of a filter, beginning with the range that it has, or with today. True when
/// the filter has got new dates; setting its type to the custom one is the caller's. After false the filter is as it
/// was.
bool PickCustomDates(CEntryFilter* filter);
