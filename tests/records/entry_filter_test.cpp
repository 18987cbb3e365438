#include "records/entry_filter.h"
#include "test_device.h"

#include <cstdio>

namespace {

using EntryFilter = TestDevice;
using Filter = CEntryFilter;

std::string Text(const SYSTEMTIME& time) {
    char text[64];
    std::snprintf(text, sizeof text, "%d-%02d-%02d/%d %02d:%02d:%02d.%03d", time.wYear, time.wMonth, time.wDay,
        time.wDayOfWeek, time.wHour, time.wMinute, time.wSecond, time.wMilliseconds);
    return text;
}

TEST_F(EntryFilter, CountsThePresetsBackFromToday) {
    SetZone("America/New_York");
    const struct {
        const char* utc;
        Filter::DateRangeType type;
        const char* start;
        const char* end;
    } cases[] = {{"2026-03-15T10:00:00Z", Filter::DateRangeLastWeek, "2026-03-09/1", "2026-03-15/0"},
        {"2026-03-15T10:00:00Z", Filter::DateRangeLastTwoWeeks, "2026-03-02/1", "2026-03-15/0"},
        {"2024-03-06T05:00:00Z", Filter::DateRangeLastWeek, "2024-02-29/4", "2024-03-06/3"},
        {"2026-01-01T04:59:59Z", Filter::DateRangeMonthToDate, "2025-12-01/1", "2025-12-31/3"}, // still last year here
        {"2026-01-01T05:00:00Z", Filter::DateRangeMonthToDate, "2026-01-01/4", "2026-01-01/4"},
        {"2024-12-31T12:00:00Z", Filter::DateRangeYearToDate, "2024-01-01/1", "2024-12-31/2"},
        {"2026-03-15T10:00:00Z", Filter::DateRangeAll, "2026-03-15/0", "2026-03-15/0"},
        {"2026-03-15T10:00:00Z", static_cast<Filter::DateRangeType>(6), "2026-03-15/0", "2026-03-15/0"}};
    for (const auto& row : cases) {
        SetClock(row.utc);
        Filter filter;
        filter.SetDateRangeType(row.type);
        EXPECT_EQ(Text(*filter.GetStartDate()), std::string(row.start) + " 00:00:00.000") << row.utc;
        EXPECT_EQ(Text(*filter.GetEndDate()), std::string(row.end) + " 23:59:59.999") << row.utc;
        EXPECT_EQ(filter.HaveDateRange() != 0, row.type >= 1 && row.type <= 5);
    }
}

TEST_F(EntryFilter, ACustomRangeHoldsBothItsDays) {
    const struct {
        SYSTEMTIME start, end;
        double date;
        bool matches;
    } cases[] = {{{2020, 2, 0, 29}, {2020, 2, 0, 29, 23, 59}, 43889.99999, false},
        {{2020, 2, 0, 29}, {2020, 2, 0, 29, 23, 59}, 43890, true},
        {{2020, 2, 0, 29}, {2020, 2, 0, 29, 23, 59}, 43890 + 1439.0 / 1440, true},
        {{2020, 2, 0, 29}, {2020, 2, 0, 29, 23, 59}, 43891, false},
        // Days before the count of dates begins, whose times of day count the other way.
        {{1899, 12, 0, 28}, {1899, 12, 0, 28, 23, 59}, -2, true},
        {{1899, 12, 0, 28}, {1899, 12, 0, 28, 23, 59}, -2.75, true},
        {{1899, 12, 0, 28}, {1899, 12, 0, 28, 23, 59}, -1, false},
        {{1899, 12, 0, 28}, {1899, 12, 0, 28, 23, 59}, -3.75, false}};
    for (const auto& [start, end, date, matches] : cases) {
        Filter filter;
        filter.SetStartDate(start, 1);
        filter.SetEndDate(end, 1);
        filter.SetDateRangeType(Filter::DateRangeCustom);
        CEntry entry;
        entry.SetDate(date);
        EXPECT_EQ(filter.EntryMatchesFilter(&entry) != 0, matches) << date;
    }
}

TEST_F(EntryFilter, ComparesVehicleAndKind) {
    CEntry entry;
    entry.SetVehicleID(1001);
    entry.SetType(CEntry::EntryTypeTrip);
    Filter filter;
    EXPECT_FALSE(filter.EntryMatchesFilter(&entry));
    filter.SetVehicleID(1001);
    EXPECT_TRUE(filter.EntryMatchesFilter(&entry));
    filter.SetEntryType(CEntry::EntryTypeFuel);
    EXPECT_FALSE(filter.EntryMatchesFilter(&entry));
    EXPECT_FALSE(filter.EntryMatchesFilter(nullptr));
}

} // namespace
