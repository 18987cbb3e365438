#pragma once

#include "records/data_layer.h"
#include "records/entry_filter.h"
#include "tally/request.h"

namespace tally {

/// All kinds of entries of a vehicle, between the days that the request names.
CEntryFilter FilterOf(const CVehicle& vehicle, const Request& request);
/// Of a type that is stored: fuel, repair, trip, expense.
const char* KindName(CEntry::Type type);

} // namespace tally
