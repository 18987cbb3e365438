#include "../units/units_device.h"
#include "records/entry_filter.h"
#include "stats/quick_stats.h"

namespace {

struct Row {
    CEntry::Type type;
    LONG odometer;
    float volume; ///< of a trip, the reading at its start
    float amount;
    const wchar_t* vendor = nullptr;
};

constexpr auto Fuel = CEntry::EntryTypeFuel;
constexpr auto Repair = CEntry::EntryTypeRepair;
constexpr auto Trip = CEntry::EntryTypeTrip;
using Rows = std::vector<Row>;

const Rows example = {{Fuel, 1000, 10, 30, L"North"}, {Repair, 1100, 0, 120}, {Fuel, 1300, 12, 36, L"South"},
    {Fuel, 1550, 10, 31, L"East"}};

class QuickStats : public UnitsDevice {
protected:
    QuickStats() {
        CDataFile::Create(HostPath());
        EXPECT_EQ(theDataLayer.Connect(Path), CDataLayer::ConnectOK);
        Filter.SetVehicleID(1001);
    }
    ~QuickStats() override { theDataLayer.Disconnect(); }

    /// The figures over the rows, oldest first, a day apart.
    CQuickStats StatsOf(const Rows& rows) {
        CObjectListT<CEntry> old;
        EXPECT_TRUE(theDataLayer.Load(&old, &Filter));
        EXPECT_TRUE(theDataLayer.Delete(&old));
        for (std::size_t i = rows.size(); i-- > 0;) {
            CEntry entry;
            entry.SetVehicleID(1001);
            entry.SetDate(40000.0 + static_cast<double>(i));
            entry.SetType(rows[i].type);
            entry.SetOdometer(rows[i].odometer);
            entry.SetCustom1(rows[i].volume);
            entry.SetAmount(rows[i].amount);
            entry.SetVendor(rows[i].vendor);
            EXPECT_TRUE(theDataLayer.Save(&entry, 0));
        }
        CQuickStats stats;
        EXPECT_EQ(stats.Calculate(&Filter), 1);
        return stats;
    }

    CEntryFilter Filter;
};

TEST_F(QuickStats, CoverAnOrdinaryLog) {
    const CQuickStats stats = StatsOf(example);
    EXPECT_EQ(stats.GetRangeText(), L"All Dates");
    EXPECT_EQ(stats.GetRecentEconomy(), 25.0F);
    EXPECT_EQ(stats.GetRecentVendor(), L"South");
    EXPECT_EQ(stats.GetFuelConsumed(), 22.0F);
    EXPECT_EQ(stats.GetFuelExpense(), 97.0F);
    EXPECT_EQ(stats.AverageFuelCost(), 3.03125F);
    EXPECT_EQ(stats.GetAverageEconomy(), 25.0F);
    EXPECT_EQ(stats.GetConsumptionRate(), 22 / (550 * 0.01F));
    EXPECT_EQ(stats.GetTotalExpense(), 217.0F);
    EXPECT_EQ(stats.GetDistance(), 550);
    EXPECT_EQ(stats.GetCostOfOwnership(), 217.0F / 5);
}

TEST_F(QuickStats, ATripBeginsWhereItStarted) {
    Rows rows = example;
    rows.insert(rows.begin(), {Trip, 1000, 900.9F, 10});
    const CQuickStats stats = StatsOf(rows);
    EXPECT_EQ(stats.GetDistance(), 650);
    EXPECT_EQ(stats.GetCostOfOwnership(), 227.0F / 6);
    EXPECT_EQ(stats.GetAverageEconomy(), 25.0F);
    rows.push_back({Trip, 2000, 1900, 0}); // at the end of the log its own start does not count
    EXPECT_EQ(StatsOf(rows).GetDistance(), 1100);
}

TEST_F(QuickStats, FiguresThatDoNotComeOut) {
    const struct {
        Rows rows;
        float average, recent, rate, consumed, cost;
        LONG distance;
        const wchar_t* vendor = L"";
    } cases[] = {
        {{}, 0, 0, 0, 0, 0, 0}, {{{Fuel, 1000, 10, 30, L"A"}}, -1, -1, 0, 0, 0, 0},
        {{{Fuel, 1000, 10, 30, L"A"}, {Fuel, 1000, 5, 9}}, -1, -1, 0, 5, 0, 0, L"A"},
        {{{Fuel, 1000, 10, 30, L"A"}, {Fuel, 1100, 0, 9}}, -1, 0, 0, 0, 39, 100}, // the newest fill was none
        {{{Fuel, 1000, 10, 30}, {Fuel, 900, 5, 9}}, -1, -1, 0, 5, 0, -100},
        {{{Fuel, 1000, 10, 30}, {Fuel, 1099, 10, 9}}, 9.9F, 9.9F, 0, 10, 0, 99},
        {{{Fuel, 1000, 10, 30}, {Fuel, 1100, 10, 9}}, 10, 10, 10, 10, 39, 100},
        {{{Repair, 0, 0, 10}, {Repair, 199, 0, 10}}, -1, 0, 0, 0, 20, 199},
        {{{Repair, 0, 0, 10}, {Trip, 1250, 0, 2}}, -1, 0, 0, 0, 1, 1250},
        {{{Repair, 2147483647, 0, 1}, {Repair, -2147483647, 0, 1}}, -1, 0, 0, 0, 0, 2}, // wraps
    };
    int number = 0;
    for (const auto& row : cases) {
        SCOPED_TRACE(number++);
        const CQuickStats stats = StatsOf(row.rows);
        EXPECT_EQ(stats.GetAverageEconomy(), row.average);
        EXPECT_EQ(stats.GetRecentEconomy(), row.recent);
        EXPECT_EQ(stats.GetConsumptionRate(), row.rate);
        EXPECT_EQ(stats.GetFuelConsumed(), row.consumed);
        EXPECT_EQ(stats.GetCostOfOwnership(), row.cost);
        EXPECT_EQ(stats.GetDistance(), row.distance);
        EXPECT_EQ(stats.GetRecentVendor(), row.vendor);
    }
}

TEST_F(QuickStats, FollowTheFilter) {
    StatsOf(example);
    Filter.SetEntryType(Repair);
    CQuickStats stats;
    ASSERT_TRUE(stats.Calculate(&Filter));
    EXPECT_EQ(stats.GetTotalExpense(), 120.0F);
    EXPECT_EQ(stats.AverageFuelCost(), 0.0F);
    Filter.SetDateRangeType(CEntryFilter::DateRangeLastWeek);
    ASSERT_TRUE(stats.Calculate(&Filter));
    EXPECT_EQ(stats.GetTotalExpense(), 0.0F);
    EXPECT_EQ(stats.GetRangeText(), L"3/9/2026 - 3/15/2026");
    theDataLayer.Disconnect();
    EXPECT_EQ(stats.Calculate(&Filter), 0);
    EXPECT_EQ(stats.GetRangeText(), L"3/9/2026 - 3/15/2026");
    EXPECT_EQ(stats.Calculate(nullptr), 0);
    EXPECT_EQ(stats.GetRangeText(), L"");
}

} // namespace
