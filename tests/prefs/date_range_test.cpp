#include "../lists/dialog_device.h"

#include "platform/time.h"
#include "prefs/pick_date_range.h"

namespace {

std::string TimeText(const SYSTEMTIME& time) {
    char text[64];
    std::snprintf(text, sizeof text, "%d-%02d-%02d %02d:%02d:%02d.%03d", time.wYear, time.wMonth, time.wDay, time.wHour,
        time.wMinute, time.wSecond, time.wMilliseconds);
    return text;
}

class DateRangeTest : public DialogDevice {
protected:
    bool Pick(const std::vector<Step>& steps) {
        return Run([this] { return PickDateRange(&Start, &End); }, steps) != 0;
    }
    std::string Range() const { return TimeText(Start) + " - " + TimeText(End); }
    static Step EndBeforeStart() {
        return [] {
            const SYSTEMTIME date{2026, 3, 0, 14, 10};
            SendMessageW(Item(controls::EndDate), DTM_SETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date));
        };
    }

    SYSTEMTIME Start{2026, 3, 0, 15, 17, 45, 30, 250};
    SYSTEMTIME End{2026, 3, 0, 15, 8, 15, 42, 999};
};

TEST_F(DateRangeTest, ARangeHasWholeDays) {
    EXPECT_TRUE(Pick({Press({VK_RETURN})})) << "one day is a range; the Action key is Done";
    EXPECT_EQ(Range(), "2026-03-15 00:00:00.250 - 2026-03-15 23:59:42.000");
}

TEST_F(DateRangeTest, PresetsFillBothDates) {
    const struct {
        const char* utc;
        int entry;
        const char *start, *end;
    } cases[] = {{"2026-03-31T10:00:07.500Z", 1, "2025-12-31", "2026-03-31"},
        {"2026-03-31T10:00:07.500Z", 2, "2025-10-02", "2026-03-31"},
        {"2024-02-29T10:00:07.500Z", 3, "2023-03-01", "2024-02-29"},
        {"2026-03-31T10:00:07.500Z", 4, "2026-03-01", "2026-03-31"},
        {"2024-03-15T10:00:07.500Z", 5, "2024-02-01", "2024-02-29"},
        // Presets see the device's own day: here the next one.
        {"2026-12-31T23:30:07.500Z", 6, "2026-01-01", "2026-12-31"}};
    SetZone("UTC-2");
    for (const auto& each : cases) {
        SetClock(each.utc);
        const auto before = Range();
        EXPECT_FALSE(Pick({Menu(each.entry), CancelByMenu()}));
        EXPECT_EQ(Range(), before) << "a preset alone changes nothing";
        EXPECT_TRUE(Pick({Menu(each.entry), Done()}));
        EXPECT_EQ(Range(), std::string(each.start) + " 00:00:00.500 - " + each.end + " 23:59:07.000");
    }
}

TEST_F(DateRangeTest, TheFilterTakesOnlyWhatWasAccepted) {
    const auto pick = [this] { return PickCustomDates(&Filter); };
    const auto dates = [this] { return TimeText(*Filter.GetStartDate()) + " - " + TimeText(*Filter.GetEndDate()); };
    const std::string today = "2026-03-15 00:00:00.000 - 2026-03-15 23:59:59.999";
    EXPECT_FALSE(Run(pick, {EndBeforeStart(), Done(), Press({VK_RETURN}), Press({VK_TBACK}), CancelByMenu()}));
    EXPECT_EQ(dates(), today);
    EXPECT_TRUE(Run(pick, {Done()}));
    EXPECT_EQ(dates(), "2026-03-15 00:00:00.000 - 2026-03-15 23:59:59.000");
    EXPECT_EQ(Filter.GetStartDate()->wDayOfWeek, 0) << "a Sunday";
    EXPECT_EQ(Filter.GetDateRangeType(), CEntryFilter::DateRangeAll) << "the type is the caller's";
}

} // namespace
