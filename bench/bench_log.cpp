#include "bench_log.h"

#include "platform/files.h"
#include "platform/system/environment.h"
#include "records/data_file.h"
#include "records/data_layer.h"
#include "records/entry_filter.h"
#include "resources/module.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sqlite3.h>

BenchStorage::BenchStorage() {
    std::snprintf(
        folder_, sizeof(folder_), "%s/odoledger-bench.XXXXXX", std::filesystem::current_path().string().c_str());
    if (!mkdtemp(folder_))
        std::abort();
    device::ReplaceEnvironment({{"HANDSET_STORAGE", folder_}});
    std::filesystem::create_directories(*HostPathOf(L"\\My Documents"));
    device::SetModule(OdoledgerModule());
}

BenchStorage::~BenchStorage() {
    theDataLayer.Disconnect();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

namespace {

[[noreturn]] void Fail(const char* reason) {
    std::fprintf(stderr, "%s\n", reason);
    std::abort();
}

/// Values that no two neighbours share, so that nothing is cheap because it was seen a moment ago. Ten entries have
/// the same date; three in four have notes, one in four is a fill without a name.
void FillLog(const std::string& file, int count) {
    CDataFile::Create(file);
    if (theDataLayer.Connect(LogPath) != CDataLayer::ConnectOK)
        Fail("The log cannot be opened.");
    CVehicle vehicle; // the first record of a file: its RefID is LogVehicle
    vehicle.SetName(L"Bus");
    if (!theDataLayer.Save(&vehicle, 0) || vehicle.GetRefID() != LogVehicle)
        Fail("The vehicle cannot be stored.");
    theDataLayer.Disconnect();
    sqlite3* connection = nullptr;
    sqlite3_open(file.c_str(), &connection);
    const std::string script = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
        + std::to_string(count)
        + ") INSERT INTO entries (ref, vehicle, date, type, odometer, amount, custom1, custom2, name, notes, vendor)"
          " SELECT 1001 + i, 1001, 30000.0 + i / 10, 1 + i % 4, 1000 + i * 7, 20 + i * (31 * i + 7) % 5987 / 100.0,"
          " 5 + i * (17 * i + 3) % 1999 / 100.0, 2.5 + i * 31 % 200 / 100.0,"
          " CASE i % 4 WHEN 0 THEN '' ELSE 'Oil change ' || i END, CASE i % 5 WHEN 0 THEN 'said ' || i ELSE '' END,"
          " 'Vendor ' || (i % 50) FROM n; UPDATE sequence SET next_ref = (SELECT max(ref) + 1 FROM entries)";
    if (sqlite3_exec(connection, script.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Fail(sqlite3_errmsg(connection));
    sqlite3_close(connection);
}

} // namespace

void MakeLog(int count) {
    const std::string file = *HostPathOf(LogPath);
    const std::string kept = file + "." + std::to_string(count);
    theDataLayer.Disconnect();
    std::filesystem::remove(file);
    if (!std::filesystem::exists(kept)) {
        FillLog(file, count);
        std::filesystem::rename(file, kept);
    }
    std::filesystem::copy_file(kept, file);
    if (theDataLayer.Connect(LogPath) != CDataLayer::ConnectOK)
        Fail("The log cannot be opened.");
}

CEntryFilter Everything() {
    CEntryFilter filter;
    filter.SetVehicleID(LogVehicle);
    return filter;
}
