#pragma once

#include "figures/chains.h"
#include "records/data_layer.h"
#include "records/entry_filter.h"
#include "tally/request.h"

#include <string>
#include <vector>

namespace tally {

/// What charts are drawn from: the whole log of a vehicle, since a period and a chain begin before their first day.
struct VehicleLog {
    /// Throws a Failure where it cannot be loaded.
    VehicleLog(const CVehicle& vehicle, const Request& request);

    std::string vehicle; ///< its name
    CEntryFilter::Bounds days; ///< that are wanted
    CObjectListT<CEntry> entries;
    figures::FillMarks marks;
};

/// What a chart may show.
std::vector<std::string> ChartKinds();
/// One of those kinds, as SVG.
std::string DrawChart(const std::string& kind, const VehicleLog& log);

} // namespace tally
