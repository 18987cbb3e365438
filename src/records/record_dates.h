#pragma once

#include "platform/types.h"

/// Today's local date at midnight, as an OLE date.
double TodayDate();

/// An OLE date before 30 December 1899 counts its days backwards and its time of day forwards, so such dates do not
/// sort as numbers. A linear date is the same moment as a plain number of days, and equal to the OLE date from there
/// on. The way there and back keeps every bit.
double LinearFromOleDate(double date);
double OleFromLinearDate(double linear);

/// A calendar time as a linear date, to the second. False, `linear` untouched, where that is no date.
bool LinearFromSystemTime(const SYSTEMTIME& time, double* linear);
