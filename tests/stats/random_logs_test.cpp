// The figures over random logs against a plain computation of their own, bit for bit.

#include "../records/log_file.h"
#include "../units/units_device.h"
#include "records/entry_filter.h"
#include "stats/quick_stats.h"

#include <algorithm>
#include <bit>
#include <cfloat>
#include <cmath>
#include <random>
#include <tuple>

namespace {

constexpr int LogCount = 10'000;
constexpr int Fuel = CEntry::EntryTypeFuel;
constexpr int Trip = CEntry::EntryTypeTrip;
constexpr std::int64_t SecondsOfDay = 86400;
constexpr int Today = 46096; ///< in days since 30 December 1899
constexpr const char* Vendors[] = {"", "North", "Sud-Est", "\u00CEle \u6771"};
constexpr const wchar_t* WideVendors[] = {L"", L"North", L"Sud-Est", L"\u00CEle \u6771"};

struct Line {
    int id, type;
    std::int64_t second; ///< of local time, since 30 December 1899
    std::int32_t odometer;
    float amount, volume; ///< of a trip, the reading at its start
    int vendor;
};
using Log = std::vector<Line>;

struct Selection {
    int type = 0;
    std::int64_t first = INT64_MIN, last = INT64_MAX;
};

struct Units {
    int distance, volume, economy;
};

struct Figures {
    float average = 0, recent = 0, consumed = 0, rate = 0, purchased = 0, ownership = 0, total = 0, fuel = 0;
    std::int32_t distance = 0;
    int vendor = 0;
};

float Economy(std::int32_t distance, float volume, Units units) {
    if (distance < 1 || volume <= 0 || units.economy < 0 || units.economy > 3)
        return -1;
    const bool kilometres = units.economy == 2;
    const float miles[] = {1, 0.621371F};
    const float others[] = {1.609F, 1};
    const float gallons[] = {1, 1.20095F, 0.2642F};
    const float imperial[] = {0.8327F, 1, 0.22F};
    const float litres[] = {3.785F, 4.54609F, 1};
    const float* const volumes[] = {gallons, imperial, litres, litres};
    const float way = static_cast<float>(distance) * (kilometres ? others : miles)[units.distance == 0 ? 0 : 1];
    const float fuel = units.volume > 2 ? 0 : volume * volumes[units.economy][units.volume];
    return fuel == 0 ? -1 : way / fuel;
}

Figures Expected(Log log, const Selection& wanted, Units units) {
    std::erase_if(log, [&](const Line& line) {
        return (wanted.type != 0 && line.type != wanted.type) || line.second < wanted.first
            || line.second > wanted.last;
    });
    // Newest first, from here on.
    std::sort(log.begin(), log.end(), [](const Line& a, const Line& b) {
        return std::tie(a.second, a.odometer, a.id) > std::tie(b.second, b.odometer, b.id);
    });
    Figures result;
    if (log.empty())
        return result;
    Log fills;
    std::copy_if(log.begin(), log.end(), std::back_inserter(fills), [](const Line& line) { return line.type == Fuel; });
    std::int32_t way = 0;
    if (!fills.empty()) {
        if (fills[0].volume > 0.0F) {
            std::int32_t last = 0;
            if (fills.size() > 1) {
                last = static_cast<std::int32_t>(std::int64_t{fills[0].odometer} - fills[1].odometer);
                result.vendor = fills[1].vendor;
            }
            result.recent = Economy(last, fills[0].volume, units);
        }
        for (const Line& fill : fills) {
            result.consumed = result.consumed + fill.volume;
            result.purchased = result.purchased + fill.volume;
            result.fuel = fill.amount + result.fuel;
        }
        result.consumed = result.consumed - fills.back().volume;
        way = static_cast<std::int32_t>(std::int64_t{fills.front().odometer} - fills.back().odometer);
    }
    result.average = Economy(way, result.consumed, units);
    if (way >= 100)
        result.rate = result.consumed / (static_cast<float>(way) * 0.01F);
    for (const Line& line : log)
        result.total = line.amount + result.total;
    const Line& oldest = log.back();
    const std::int64_t start = oldest.type == Trip ? static_cast<std::int64_t>(oldest.volume) : oldest.odometer;
    result.distance = static_cast<std::int32_t>(log.front().odometer - start);
    const std::int32_t hundreds = result.distance / 100;
    if (hundreds >= 1)
        result.ownership = result.total / static_cast<float>(hundreds);
    return result;
}

std::uint32_t Bits(float value) {
    return value == value ? std::bit_cast<std::uint32_t>(value) : 0x7FC00000U;
}

class RandomLogs : public UnitsDevice {
protected:
    int Draw(int first, int last) {
        return first + static_cast<int>(random_() % static_cast<unsigned>(last - first + 1));
    }
    bool Chance(int percent) { return Draw(1, 100) <= percent; }
    float Number() {
        const float cents = static_cast<float>(Draw(1, 99999)) / 100;
        const float numbers[] = {0, -cents, std::ldexp(cents, Draw(-60, 60)), Chance(5) ? FLT_MAX : 1E6F * cents};
        return Chance(40) ? numbers[Draw(0, 3)] : cents;
    }
    Log MakeLog() {
        const int spread = Draw(0, 3) * Draw(1, 200);
        Log log(static_cast<std::size_t>(Chance(3) ? 0 : Draw(1, Chance(10) ? 60 : 12)));
        std::int32_t odometer = Draw(-500, 200000);
        for (Line& line : log) {
            line.id = ++lastId_;
            line.second = SecondsOfDay * (Today + Draw(-spread, spread)) + (Chance(30) ? Draw(0, 86399) : 0);
            line.type = Chance(50) ? Fuel : Draw(1, 4);
            odometer += Chance(20) ? 0 : Chance(10) ? Draw(99, 100) : Draw(-30, 400); // a figure begins at 100
            line.odometer = Chance(1) ? (Chance(50) ? INT32_MAX : INT32_MIN) : odometer;
            line.amount = Number();
            line.volume = line.type == Trip ? static_cast<float>(odometer - Draw(0, 300)) + 0.75F : Number();
            line.vendor = Draw(0, 3);
        }
        return log;
    }
    static void Store(const std::vector<Log>& logs) {
        std::string sql = "PRAGMA synchronous = OFF; BEGIN;";
        for (std::size_t vehicle = 0; vehicle < logs.size(); ++vehicle) {
            for (const Line& line : logs[vehicle]) {
                char row[256];
                std::snprintf(row, sizeof row,
                    "INSERT INTO entries VALUES (%d, %d, %zu, %d + %d / 86400.0, %d, %d, %.17g, %.17g, 0, '', '', "
                    "'%s');",
                    line.id, line.id, vehicle + 1, static_cast<int>(line.second / SecondsOfDay),
                    static_cast<int>(line.second % SecondsOfDay), line.type, line.odometer, double{line.amount},
                    double{line.volume}, Vendors[line.vendor]);
                sql += row;
            }
        }
        LogFile(HostPath()).Run(sql + "COMMIT");
    }
    /// The same choice in the program's filter.
    Selection Select(CEntryFilter* filter) {
        Selection wanted;
        wanted.type = Chance(60) ? 0 : Draw(1, 4);
        filter->SetEntryType(static_cast<CEntry::Type>(wanted.type));
        if (Chance(50))
            return wanted;
        wanted.first = SecondsOfDay * (Today + Draw(-90, 90));
        wanted.last = wanted.first + SecondsOfDay * Draw(0, 120) + 86340;
        const auto time = [this](std::int64_t second) {
            constexpr std::chrono::sys_days origin{std::chrono::year{1899} / 12 / 30};
            return device::CalendarTime(
                origin + std::chrono::seconds{second} + std::chrono::milliseconds{Draw(0, 999)});
        };
        filter->SetStartDate(time(wanted.first), 1);
        filter->SetEndDate(time(wanted.last), 1);
        filter->SetDateRangeType(CEntryFilter::DateRangeCustom);
        return wanted;
    }

private:
    std::mt19937 random_{20260315};
    int lastId_ = 0;
};

TEST_F(RandomLogs, GiveTheFiguresOfAPlainComputation) {
    ASSERT_TRUE(CDataFile::Create(HostPath()));
    std::vector<Log> logs(LogCount);
    std::generate(logs.begin(), logs.end(), [this] { return MakeLog(); });
    Store(logs);
    ASSERT_EQ(theDataLayer.Connect(Path), CDataLayer::ConnectOK);
    for (std::size_t vehicle = 0; vehicle < logs.size() && !HasFailure(); ++vehicle) {
        SCOPED_TRACE(vehicle);
        const Units units{Draw(0, 2), Draw(0, 3), Draw(-1, 4)};
        UseUnits(units.distance, units.volume, units.economy);
        CEntryFilter filter;
        filter.SetVehicleID(static_cast<ULONG>(vehicle + 1));
        const Figures expected = Expected(logs[vehicle], Select(&filter), units);
        CQuickStats stats;
        ASSERT_EQ(stats.Calculate(&filter), 1);
        const float cost = expected.purchased == 0 ? 0 : expected.fuel / expected.purchased;
        EXPECT_EQ(Bits(stats.GetAverageEconomy()), Bits(expected.average));
        EXPECT_EQ(Bits(stats.GetRecentEconomy()), Bits(expected.recent));
        EXPECT_EQ(Bits(stats.GetFuelConsumed()), Bits(expected.consumed));
        EXPECT_EQ(Bits(stats.GetConsumptionRate()), Bits(expected.rate));
        EXPECT_EQ(Bits(stats.GetCostOfOwnership()), Bits(expected.ownership));
        EXPECT_EQ(Bits(stats.GetTotalExpense()), Bits(expected.total));
        EXPECT_EQ(Bits(stats.GetFuelExpense()), Bits(expected.fuel));
        EXPECT_EQ(Bits(stats.AverageFuelCost()), Bits(cost));
        EXPECT_EQ(stats.GetDistance(), expected.distance);
        EXPECT_EQ(stats.GetRecentVendor(), WideVendors[expected.vendor]);
    }
    theDataLayer.Disconnect();
}

} // namespace
