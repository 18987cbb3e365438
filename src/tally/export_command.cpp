#include "exchange/own_files.h"
#include "tally/commands.h"
#include "tally/log_batch.h"
#include "tally/table.h"

#include <sysexits.h>

namespace tally {

int Export(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    const exchange::Batch batch = BatchOf(log.Chosen(request.vehicle), request.vehicle.empty());
    const bool isJson = request.format == Format::Json;
    Deliver(isJson ? exchange::WriteOwnJson(batch) : exchange::WriteOwnCsv(batch), request, surroundings);
    return EX_OK;
}

} // namespace tally
