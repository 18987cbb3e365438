#include "prefs_fixture.h"

#include "platform/time.h"
#include "prefs/pick_date_range.h"

namespace {

SYSTEMTIME At(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second, WORD milliseconds) {
    return {.wYear = year,
        .wMonth = month,
        .wDay = day,
        .wHour = hour,
        .wMinute = minute,
        .wSecond = second,
        .wMilliseconds = milliseconds};
}

std::string TextOf(const SYSTEMTIME& time) {
    char text[64];
    std::snprintf(text, sizeof text, "%d-%02d-%02d %02d:%02d:%02d.%03d", time.wYear, time.wMonth, time.wDay, time.wHour,
        time.wMinute, time.wSecond, time.wMilliseconds);
    return text;
}

class DateRangeTest : public PrefsTest {
protected:
    bool Pick(const std::vector<Step>& steps) {
        return Run([this] { return PickDateRange(&Start, &End); }, steps) != 0;
    }
    std::string Shown() const {
        SYSTEMTIME start;
        SYSTEMTIME end;
        SendMessageW(Item(controls::StartDate), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&start));
        SendMessageW(Item(controls::EndDate), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&end));
        return ::TextOf(start).substr(0, 10) + " - " + ::TextOf(end).substr(0, 10);
    }
    std::string Range() const { return ::TextOf(Start) + " - " + ::TextOf(End); }
    Step ChooseEnd(WORD year, WORD month, WORD day) {
        return [this, date = At(year, month, day, 10, 0, 0, 0)] {
            SendMessageW(Item(controls::EndDate), DTM_SETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date));
            Press({VK_TSOFT1})();
        };
    }

    const Step done = Press({VK_TSOFT1});
    const Step cancel = Menu(7);
    SYSTEMTIME Start = At(2026, 3, 15, 17, 45, 30, 250);
    SYSTEMTIME End = At(2026, 3, 15, 8, 15, 42, 999);
};

TEST_F(DateRangeTest, ARangeHasWholeDays) {
    EXPECT_TRUE(Pick({Press({VK_RETURN})})) << "one day is a range; the Action key is Done";
    EXPECT_EQ(Range(), "2026-03-15 00:00:00.250 - 2026-03-15 23:59:42.000");
}

TEST_F(DateRangeTest, AnEndBeforeTheStartIsRefused) {
    const auto refused = [&] {
        EXPECT_EQ(Message(), L"End date must be greater than start date.");
        Press({VK_RETURN})();
    };
    const auto keeps = [&] {
        EXPECT_EQ(Shown(), "2026-03-15 - 2026-03-14");
        EXPECT_EQ(Range(), "2026-03-15 00:00:00.250 - 2026-03-14 23:59:00.000") << "what was refused is here already";
        Press({VK_TBACK, VK_TBACK})(); // do nothing here
    };
    EXPECT_FALSE(Pick({ChooseEnd(2026, 3, 14), refused, keeps, cancel}));
}

TEST_F(DateRangeTest, PresetsFillBothDates) {
    struct Case {
        const char* utc;
        int entry;
        const char* dates;
    };
    const Case cases[] = {
        {"2026-03-31T10:00:07.500Z", 1, "2025-12-31 - 2026-03-31"},
        {"2026-03-31T10:00:07.500Z", 2, "2025-10-02 - 2026-03-31"},
        {"2024-02-29T10:00:07.500Z", 3, "2023-03-01 - 2024-02-29"},
        {"2026-03-31T10:00:07.500Z", 4, "2026-03-01 - 2026-03-31"},
        {"2026-01-01T10:00:07.500Z", 5, "2025-12-01 - 2025-12-31"},
        {"2024-03-15T10:00:07.500Z", 5, "2024-02-01 - 2024-02-29"},
        {"2026-01-01T10:00:07.500Z", 6, "2025-01-01 - 2025-12-31"},
        // Presets see the device's own day: here the next one.
        {"2026-12-31T23:30:07.500Z", 6, "2026-01-01 - 2026-12-31"},
    };
    SetZone("UTC-2");
    for (const Case& each : cases) {
        SetClock(each.utc);
        const auto look = [&] { EXPECT_EQ(Shown(), each.dates); };
        const auto before = Range();
        EXPECT_FALSE(Pick({Menu(each.entry), look, cancel}));
        EXPECT_EQ(Range(), before) << "a preset alone changes nothing";
        EXPECT_TRUE(Pick({Menu(each.entry), done}));
        const std::string dates = each.dates;
        EXPECT_EQ(Range(), dates.substr(0, 10) + " 00:00:00.500 - " + dates.substr(13) + " 23:59:07.000");
    }
}

TEST_F(DateRangeTest, TheFilterTakesOnlyWhatWasAccepted) {
    const auto pick = [this] { return PickCustomDates(&Filter); };
    const auto dates = [this] { return ::TextOf(*Filter.GetStartDate()) + " - " + ::TextOf(*Filter.GetEndDate()); };
    const std::string today = "2026-03-15 00:00:00.000 - 2026-03-15 23:59:59.999";
    EXPECT_EQ(dates(), today);
    const auto refused = [&] { Press({VK_RETURN})(); };
    EXPECT_FALSE(Run(pick, {ChooseEnd(2026, 3, 14), refused, cancel}));
    EXPECT_EQ(dates(), today);
    EXPECT_TRUE(Run(pick, {done}));
    EXPECT_EQ(dates(), "2026-03-15 00:00:00.000 - 2026-03-15 23:59:59.000");
    EXPECT_EQ(Filter.GetStartDate()->wDayOfWeek, 0) << "a Sunday";
    EXPECT_EQ(Filter.GetDateRangeType(), CEntryFilter::DateRangeAll) << "the type is the caller's";
}

} // namespace
