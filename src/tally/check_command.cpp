#include "records/file_report.h"
#include "tally/commands.h"
#include "tally/failure.h"
#include "tally/open_log.h"
#include "tally/table.h"

#include <filesystem>
#include <sysexits.h>

namespace tally {

int Check(const Request& request, Surroundings& surroundings) {
    const std::string path = PathOfLog(request.file);
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        throw Failure(EX_NOINPUT, path + ": there is no such file");
    const std::vector<std::string> faults = FaultsOfFile(path);
    if (faults.empty()) {
        Deliver(path + ": sound\n", request, surroundings);
        return EX_OK;
    }
    std::string result;
    for (const std::string& fault : faults)
        result.append(path).append(": ").append(fault).append("\n");
    Deliver(result, request, surroundings);
    return EX_DATAERR;
}

} // namespace tally
