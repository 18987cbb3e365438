#include "list_device.h"
#include "stats/quick_stats.h"
#include "stats/quick_stats_rows.h"

using QuickStatsScreen = ListDevice;

TEST_F(QuickStatsScreen, WritesOutEachFigureAndSaysWhereThereIsNone) {
    CQuickStats stats;
    EXPECT_EQ(QuickStatsValueText(1, &stats), L"N/A") << "an economy of 0";
    Store(40001, CEntry::EntryTypeRepair, L"Brakes", 1100, 120);
    for (const auto& [day, odometer, volume, amount] : {std::tuple{0, 1000, 10.0F, 30.0F}, {2, 1550, 22.0F, 67.0F}}) {
        const auto fill = Store(40000 + day, CEntry::EntryTypeFuel, L"", odometer, amount);
        fill->SetCustom1(volume);
        EXPECT_TRUE(Layer.Save(fill.get(), 0));
        stats.Calculate(&Filter);
        EXPECT_EQ(QuickStatsValueText(1, &stats) == L"N/A", day == 0) << "an economy of -1";
    }
    const wchar_t* const values[QuickStatsRowCount] = {L"All Dates", L"25.00 mi/gal", L"25.00 mi/gal", L"$3.03 per gal",
        L"550 miles", L"22.00 gal", L"$97.00", L"$217.00", L"4.00 gal per 100 miles", L"$43.40 per 100 miles"};
    for (int row = 0; row < QuickStatsRowCount; ++row) {
        EXPECT_EQ(QuickStatsValueText(row, &stats), values[row]);
        EXPECT_EQ(QuickStatsValueText(row, nullptr), L"N/A");
    }
    for (int count = 0; count < 2; ++count) { // sums beyond a float
        const auto fill = Store(40003, CEntry::EntryTypeFuel, L"", 1650, 3e38F);
        fill->SetCustom1(3e38F);
        EXPECT_TRUE(Layer.Save(fill.get(), 0));
    }
    stats.Calculate(&Filter);
    EXPECT_EQ(QuickStatsValueText(7, &stats), L"$340,282,346,638,528,859,811,704,183,484,516,925,440.00");
    EXPECT_EQ(QuickStatsValueText(3, &stats), L"$0.00 per gal") << "a quotient of two such sums";
    Filter.SetDateRangeType(CEntryFilter::DateRangeLastWeek);
    Layer.Disconnect();
    EXPECT_EQ(stats.Calculate(&Filter), 0);
    EXPECT_EQ(QuickStatsValueText(0, &stats), L"3/9/2026 - 3/15/2026") << "also when nothing can be loaded";
    EXPECT_EQ(stats.Calculate(nullptr), 0);
    EXPECT_EQ(QuickStatsValueText(0, &stats), L"N/A");
}
