#pragma once

#include "records/data_layer.h"
#include "records/entry_filter.h"
#include "tally/request.h"

namespace tally {

/// All kinds of entries of a vehicle, between the days that the request names.
CEntryFilter FilterOf(const CVehicle& vehicle, const Request& request);
/// A reminder by one of the two alone has, for the other, what is never reached.
inline constexpr LONG NoOdometer = 2'000'000'000;
inline constexpr double NoDate = 2957000; // in the year 9995

/// Of a type that is stored: fuel, repair, trip, expense.
const char* KindName(CEntry::Type type);

} // namespace tally
