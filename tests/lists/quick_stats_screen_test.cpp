#include "list_device.h"
#include "platform/input.h"
#include "stats/quick_stats.h"
#include "stats/screen/dlg_quick_stats.h"
#include "stats/screen/quick_stats_rows.h"

namespace {

class QuickStatsScreen : public ListDevice {
protected:
    void StoreFill(double date, LONG odometer, float volume, float amount, const wchar_t* vendor) {
        const auto entry = Store(date, CEntry::EntryTypeFuel, L"", odometer, amount, vendor);
        entry->SetCustom1(volume);
        EXPECT_TRUE(Layer.Save(entry.get(), 0));
    }
    void StoreExample(const wchar_t* vendor) {
        StoreFill(40000, 1000, 10, 30, L"North");
        Store(40001, CEntry::EntryTypeRepair, L"Brakes", 1100, 120);
        StoreFill(40002, 1300, 12, 36, vendor);
        StoreFill(40003, 1550, 10, 31, L"East");
        ASSERT_EQ(Stats.Calculate(&Filter), 1);
    }
    bool Shows(const std::wstring& text) {
        const auto texts = Host.Texts();
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }

    CQuickStats Stats;
};

TEST_F(QuickStatsScreen, WritesOutEachFigure) {
    StoreExample(L"South");
    const wchar_t* const values[QuickStatsRowCount]
        = {L"All Dates", L"25.00 mi/gal", L"25.00 mi/gal (South)", L"$3.03 per gal", L"550 miles", L"22.00 gal",
            L"$97.00", L"$217.00", L"4.00 gal per 100 miles", L"$43.40 per 100 miles"};
    for (int row = 0; row < QuickStatsRowCount; ++row) {
        EXPECT_EQ(QuickStatsValueText(row, &Stats), values[row]);
        EXPECT_EQ(QuickStatsValueText(row, nullptr), L"N/A");
    }
    theSettings.UnitVolume = 2;
    EXPECT_EQ(QuickStatsValueText(5, &Stats), L"22.00 ltr") << "units are those of the moment";
    theSettings.UnitVolume = 0;
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

TEST_F(QuickStatsScreen, IsReadWithTheKeysAndClosedWithEither) {
    StoreExample(std::wstring(300, L'v').c_str());
    for (const auto& [key, result] : {std::pair{VK_TSOFT1, IDOK}, {VK_TSOFT2, IDCANCEL}, {VK_TBACK, IDCANCEL}}) {
        CDlgQuickStats dialog;
        dialog.Stats = &Stats;
        Host.Then([&] {
            EXPECT_TRUE(Shows(L"Date range:"));
            EXPECT_TRUE(Shows(L"All Dates"));
            EXPECT_TRUE(Shows(L"Done"));
            EXPECT_FALSE(Shows(QuickStatsValueText(2, &Stats))) << "an ellipsis ends it";
        });
        for (int row = 1; row < QuickStatsRowCount; ++row)
            Host.Key(VK_DOWN);
        Host.Then([&] {
            const HWND list = GetDlgItem(dialog.GetHandle(), 1072);
            EXPECT_EQ(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 9);
            EXPECT_TRUE(Shows(L"$43.40 per 100 miles"));
            Host.Press(key);
        });
        EXPECT_EQ(dialog.DoModal(), result);
    }
}

} // namespace
