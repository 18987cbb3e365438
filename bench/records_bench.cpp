// What the data layer costs beside the bare work: the same statements, the same texts, the same file.

#include "bench_log.h"
#include "platform/files.h"
#include "platform/utf8.h"
#include "records/data_layer.h"
#include "records/entry_filter.h"
#include "records/statements.h"
#include "stats/quick_stats.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <vector>

namespace {

std::string HostPath() {
    return *HostPathOf(LogPath);
}

struct PlainEntry {
    LONG id;
    ULONG ref, vehicle;
    double date;
    LONG type, odometer;
    float amount, custom1, custom2;
    std::wstring name, notes, vendor;
};

void ReadText(sqlite3_stmt* statement, int column, std::wstring* text) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    device::FromUtf8({bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))}, text);
}

void BareLoad(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    theDataLayer.Disconnect();
    sqlite3* connection = nullptr;
    sqlite3_open(HostPath().c_str(), &connection);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection, SqlText(Sql::LoadEntries), -1, &statement, nullptr);
    for ([[maybe_unused]] auto _ : state) {
        std::vector<PlainEntry> entries;
        sqlite3_bind_int64(statement, 1, LogVehicle);
        sqlite3_bind_int64(statement, 2, 0);
        sqlite3_bind_double(statement, 3, -1e9);
        sqlite3_bind_double(statement, 4, 1e9);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            PlainEntry& entry = entries.emplace_back();
            entry.id = sqlite3_column_int(statement, 0);
            entry.ref = static_cast<ULONG>(sqlite3_column_int64(statement, 1));
            ReadText(statement, 2, &entry.name);
            ReadText(statement, 3, &entry.notes);
            entry.vehicle = static_cast<ULONG>(sqlite3_column_int64(statement, 4));
            entry.date = sqlite3_column_double(statement, 5);
            entry.type = sqlite3_column_int(statement, 6);
            entry.odometer = sqlite3_column_int(statement, 7);
            entry.amount = static_cast<float>(sqlite3_column_double(statement, 8));
            entry.custom1 = static_cast<float>(sqlite3_column_double(statement, 9));
            entry.custom2 = static_cast<float>(sqlite3_column_double(statement, 10));
            ReadText(statement, 11, &entry.vendor);
        }
        sqlite3_reset(statement);
        benchmark::DoNotOptimize(entries.data());
    }
    sqlite3_finalize(statement);
    sqlite3_close(connection);
}

void Load(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    CEntryFilter filter = Everything();
    for ([[maybe_unused]] auto _ : state) {
        CObjectListT<CEntry> entries;
        theDataLayer.Load(&entries, &filter);
        benchmark::DoNotOptimize(entries.GetCount());
    }
}

void Statistics(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    CEntryFilter filter = Everything();
    for ([[maybe_unused]] auto _ : state) {
        CQuickStats stats;
        benchmark::DoNotOptimize(stats.Calculate(&filter));
    }
}

void BareSave(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    theDataLayer.Disconnect();
    sqlite3* connection = nullptr;
    sqlite3_open(HostPath().c_str(), &connection);
    sqlite3_exec(connection, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = EXTRA", nullptr, nullptr, nullptr);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection,
        "INSERT INTO entries (ref, vehicle, date, type, odometer, amount, custom1, custom2, name, notes, vendor)"
        " VALUES (1, 1001, ?, 1, 5, 31.5, 10.1, 3.1, '', '', 'Vendor')",
        -1, &statement, nullptr);
    double date = 50000;
    for ([[maybe_unused]] auto _ : state) {
        sqlite3_exec(connection, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_bind_double(statement, 1, date++);
        sqlite3_step(statement);
        sqlite3_reset(statement);
        sqlite3_exec(connection, "COMMIT", nullptr, nullptr, nullptr);
    }
    sqlite3_finalize(statement);
    sqlite3_close(connection);
}

void Save(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    double date = 50000;
    for ([[maybe_unused]] auto _ : state) {
        CEntry entry;
        entry.SetVehicleID(LogVehicle);
        entry.SetDate(date++);
        entry.SetType(CEntry::EntryTypeFuel);
        entry.SetVendor(L"Vendor");
        if (!theDataLayer.Save(&entry, 0))
            state.SkipWithError("not saved");
    }
}

/// What a person who selected a tenth of a long log waits for.
void DeleteMany(benchmark::State& state) {
    constexpr int Selected = 10'000;
    CEntryFilter filter = Everything();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        MakeLog(static_cast<int>(state.range(0)));
        CObjectListT<CEntry> entries;
        CObjectListT<CEntry> selected;
        selected.AllowAutoCleanup(0);
        theDataLayer.Load(&entries, &filter);
        for (int index = 0; index < Selected; ++index)
            selected.Add(entries.Get(index * (entries.GetCount() / Selected)));
        state.ResumeTiming();
        if (!theDataLayer.Delete(&selected))
            state.SkipWithError("not deleted");
        state.PauseTiming();
        entries.Clear();
        state.ResumeTiming();
    }
}

void MaxOdometer(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    LONG odometer = 0;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(theDataLayer.GetMaxOdometer(LogVehicle, &odometer));
}

void Connect(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(theDataLayer.Connect(LogPath));
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(BareLoad)->Apply(Sizes);
BENCHMARK(Load)->Apply(Sizes);
BENCHMARK(Statistics)->Apply(Sizes);
BENCHMARK(BareSave)->Apply(Sizes)->UseRealTime();
BENCHMARK(Save)->Apply(Sizes)->UseRealTime();
BENCHMARK(DeleteMany)->Arg(100'000)->Iterations(5)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(MaxOdometer)->Apply(Sizes);
BENCHMARK(Connect)->Apply(Sizes);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const BenchStorage storage;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
