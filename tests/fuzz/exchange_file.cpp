// Whatever a file holds, reading it ends, and what was understood comes back from our own form of it.

#include "exchange/csv_rows.h"
#include "exchange/own_files.h"
#include "exchange/read_file.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    exchange::ReadCsvRows(bytes, exchange::SeparatorOf(bytes));
    exchange::Batch batch;
    if (exchange::ReadFile(bytes, {}, &batch).format.empty())
        return 0;
    const std::string written = exchange::WriteOwnCsv(batch);
    for (const std::string& form : {written, exchange::WriteOwnJson(batch)}) {
        exchange::Batch again;
        exchange::ReadFile(form, {}, &again);
        if (!again.faults.empty() || exchange::WriteOwnCsv(again) != written)
            std::abort();
    }
    exchange::ConvertUnits(&batch, DistanceKilometres, VolumeLitres);
    return 0;
}
