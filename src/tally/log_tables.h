#pragma once

#include "records/vehicle.h"
#include "tally/table.h"

#include <vector>

namespace tally {

/// The entries of vehicles between the days of the request, the oldest first.
Table EntryTable(const std::vector<const CVehicle*>& vehicles, const Request& request);
/// The ten figures of a vehicle.
Table FigureTable(const CVehicle& vehicle, const Request& request);
/// All reminders of a vehicle.
Table ReminderTable(const CVehicle& vehicle);

} // namespace tally
