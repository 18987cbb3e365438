#pragma once

#include "exchange/batch.h"
#include "figures/chains.h"
#include "records/companion_tables.h"
#include "tally/open_log.h"

#include <map>

namespace tally {

/// Copies of the records of these vehicles, in the program's units; with the keywords where `hasKeywords`.
exchange::Batch BatchOf(const std::vector<const CVehicle*>& vehicles, bool hasKeywords);
/// What the companion knows of entries beside their records, by RefID.
std::map<ULONG, CEntryMarks> LoadMarks();
/// The same as the figures take it.
figures::FillMarks LoadFillMarks();
/// The units that the program is set to; none for a setting out of range.
std::optional<UnitDistance> DistanceSetting();
std::optional<UnitVolume> VolumeSetting();

} // namespace tally
