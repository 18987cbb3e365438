#include "../lists/dialog_device.h"
#include "../platform/system/time_text.h"

#include "prefs/pick_date_range.h"

namespace {

class DateRangeTest : public DialogDevice {
protected:
    bool Pick(const std::vector<Step>& steps) {
        return Run([this] { return PickDateRange(&Start, &End); }, steps) != 0;
    }
    std::string Range() const { return Text(Start) + " - " + Text(End); }
    SYSTEMTIME Start{2026, 3, 0, 15, 17, 45, 30, 250};
    SYSTEMTIME End{2026, 3, 0, 15, 8, 15, 42, 999};
};

TEST_F(DateRangeTest, ARangeHasWholeDays) {
    EXPECT_TRUE(Pick({Press({VK_RETURN})})) << "one day is a range; the Action key is Done";
    EXPECT_EQ(Range(), "2026-03-15T00:00:00.250/0 - 2026-03-15T23:59:42.000/0");
}

TEST_F(DateRangeTest, EachPresetHasItsEntry) {
    int entry = 0;
    for (const char* start : {"2025-12-15", "2025-09-16", "2025-03-15", "2026-02-13", "2026-02-01", "2025-01-01"}) {
        EXPECT_TRUE(Pick({Menu(++entry), Done()}));
        EXPECT_EQ(Text(Start).substr(0, 10), start);
    }
}

TEST_F(DateRangeTest, TheFilterTakesOnlyWhatWasAccepted) {
    const auto pick = [this] { return PickCustomDates(&Filter); };
    const auto dates = [this] { return Text(*Filter.GetStartDate()) + " - " + Text(*Filter.GetEndDate()); };
    const std::string today = "2026-03-15T00:00:00.000/0 - 2026-03-15T23:59:59.999/0";
    EXPECT_FALSE(Run(pick, {Type(L"1"), Press({VK_TBACK}), CancelByMenu()}));
    EXPECT_EQ(dates(), today);
    SetClock("2026-03-17T08:15:42.250Z"); // without a range the dialog opens on the day on which it is asked for
    EXPECT_TRUE(Run(pick, {Done()}));
    EXPECT_EQ(dates(), "2026-03-17T00:00:00.250/2 - 2026-03-17T23:59:42.000/2");
    EXPECT_EQ(Filter.GetDateRangeType(), CEntryFilter::DateRangeAll) << "the type is the caller's";
}

} // namespace
