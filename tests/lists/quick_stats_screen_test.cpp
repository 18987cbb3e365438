#include "list_device.h"
#include "stats/quick_stats.h"
#include "stats/screen/quick_stats_rows.h"

namespace {

class QuickStatsScreen : public ListDevice {
protected:
    void StoreFill(double date, LONG odometer, float volume, float amount, const wchar_t* vendor) {
        const auto entry = Store(date, CEntry::EntryTypeFuel, L"", odometer, amount, vendor);
        entry->SetCustom1(volume);
        EXPECT_TRUE(Layer.Save(entry.get(), 0));
    }

    CQuickStats Stats;
};

TEST_F(QuickStatsScreen, WritesOutEachFigure) {
    StoreFill(40000, 1000, 10, 30, L"North");
    Store(40001, CEntry::EntryTypeRepair, L"Brakes", 1100, 120);
    StoreFill(40002, 1300, 12, 36, L"South");
    StoreFill(40003, 1550, 10, 31, L"East");
    ASSERT_EQ(Stats.Calculate(&Filter), 1);
    const wchar_t* const values[QuickStatsRowCount]
        = {L"All Dates", L"25.00 mi/gal", L"25.00 mi/gal (South)", L"$3.03 per gal", L"550 miles", L"22.00 gal",
            L"$97.00", L"$217.00", L"4.00 gal per 100 miles", L"$43.40 per 100 miles"};
    for (int row = 0; row < QuickStatsRowCount; ++row) {
        EXPECT_EQ(QuickStatsValueText(row, &Stats), values[row]);
        EXPECT_EQ(QuickStatsValueText(row, nullptr), L"N/A");
    }
}

TEST_F(QuickStatsScreen, HasNoFigureWhereThereIsNone) {
    EXPECT_EQ(QuickStatsValueText(1, &Stats), L"N/A") << "an economy of 0";
    EXPECT_EQ(QuickStatsValueText(4, &Stats), L"0 miles");
    EXPECT_EQ(QuickStatsValueText(6, &Stats), L"$0.00");
    StoreFill(40000, 1000, 10, 30, L"North");
    Stats.Calculate(&Filter);
    EXPECT_EQ(QuickStatsValueText(1, &Stats), L"N/A") << "an economy of -1";
    EXPECT_EQ(QuickStatsValueText(2, &Stats), L"N/A");
}

TEST_F(QuickStatsScreen, KeepsItsRangeWhenNothingCanBeLoaded) {
    StoreFill(40000, 1000, 10, 30, L"North");
    Filter.SetDateRangeType(CEntryFilter::DateRangeLastWeek);
    ASSERT_EQ(Stats.Calculate(&Filter), 1);
    EXPECT_EQ(Stats.GetTotalExpense(), 0.0F);
    Layer.Disconnect();
    EXPECT_EQ(Stats.Calculate(&Filter), 0);
    EXPECT_EQ(QuickStatsValueText(0, &Stats), L"3/9/2026 - 3/15/2026");
    EXPECT_EQ(Stats.Calculate(nullptr), 0);
    EXPECT_EQ(QuickStatsValueText(0, &Stats), L"N/A");
}

} // namespace
