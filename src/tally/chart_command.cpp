#include "tally/commands.h"
#include "tally/open_log.h"
#include "tally/table.h"
#include "tally/vehicle_charts.h"

#include <sysexits.h>

namespace tally {

int Chart(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    Deliver(DrawChart(request.target, VehicleLog(log.TheOne(request.vehicle), request)), request, surroundings);
    return EX_OK;
}

} // namespace tally
