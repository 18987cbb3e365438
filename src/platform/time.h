#pragma once

#include "platform/types.h"

/// The device's clock. UTC and local time; the zone is the host's TZ.
void GetSystemTime(SYSTEMTIME* time);
void GetLocalTime(SYSTEMTIME* time);

/// Both fail (FALSE, result untouched) for a time that is no date of the years 1601 to 30827.
BOOL SystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* ticks);
BOOL FileTimeToSystemTime(const FILETIME* ticks, SYSTEMTIME* time);
/// -1, 0 or 1.
LONG CompareFileTime(const FILETIME* first, const FILETIME* second);

/// OLE automation dates: days since 30 December 1899, the fraction being the time of day (for negative dates the
/// fraction counts forward from the day all the same). Years 100 to 9999. Return FALSE outside them or for an
/// impossible day. Milliseconds are dropped on the way to a date; a date is rounded to the nearest second on the way
/// to a calendar time, so that a date made from a calendar time comes back bit for bit.
INT SystemTimeToVariantTime(const SYSTEMTIME* time, double* date);
INT VariantTimeToSystemTime(double date, SYSTEMTIME* time);
