// Whatever a file holds, reading it ends, and what was understood comes back from our own form of it.

#include "exchange/csv_rows.h"
#include "exchange/mapped_csv.h"
#include "exchange/own_files.h"
#include "exchange/read_file.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Check(const std::string& bytes, const exchange::ReadingOptions& options) {
    exchange::Batch batch;
    if (exchange::ReadFile(bytes, options, &batch).format.empty())
        return;
    const std::string written = exchange::WriteOwnCsv(batch);
    for (const std::string& form : {written, exchange::WriteOwnJson(batch)}) {
        exchange::Batch again;
        exchange::ReadFile(form, {}, &again);
        if (!again.faults.empty() || exchange::WriteOwnCsv(again) != written)
            std::abort();
    }
    exchange::ConvertUnits(&batch, DistanceKilometres, VolumeLitres);
    for (std::size_t vehicle = 0; vehicle < batch.vehicles.size(); ++vehicle)
        exchange::FillOdometers(&batch, vehicle, {});
    exchange::Batch joined;
    exchange::Append(&joined, std::move(batch));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    exchange::ReadCsvRows(bytes, exchange::SeparatorOf(bytes));
    Check(bytes, {});
    exchange::ReadingOptions options;
    options.dates = exchange::DateOrder::MonthDayYear;
    options.decimal = ',';
    options.distance = DistanceMiles;
    options.volume = VolumeGallonsUK;
    options.intoDistance = DistanceKilometres;
    options.intoVolume = VolumeLitres;
    Check(bytes, options);
    std::string reason;
    exchange::ReadMapping(bytes, &reason);
    options.columns = {{"date", "date"}, {"odometer", "odometer"}, {"total", "cost"}, {"notes", "notes"}};
    Check(bytes, options);
    return 0;
}
