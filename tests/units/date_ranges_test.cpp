#include "records/entry_filter.h"
#include "units/date_ranges.h"
#include "units_device.h"

#include <cstdio>

namespace {

using DateRanges = UnitsDevice;

SYSTEMTIME Day(WORD year, WORD month, WORD day) {
    return {year, month, 0, day, 13, 14, 15, 167};
}

/// The time of day has to stay what Day gave it.
std::string Text(const SYSTEMTIME& time) {
    EXPECT_EQ(time.wHour * 10000 + time.wMinute * 100 + time.wSecond, 131415);
    EXPECT_EQ(time.wMilliseconds, 167);
    char text[32];
    std::snprintf(text, sizeof text, "%d-%02d-%02d", time.wYear, time.wMonth, time.wDay);
    return text;
}

TEST_F(DateRanges, DaysAreAddedOnTheCalendar) {
    const struct {
        SYSTEMTIME source;
        LONG days;
        const char* result;
        WORD dayOfWeek;
    } cases[] = {{Day(2024, 2, 28), 1, "2024-02-29", 4}, {Day(2023, 2, 28), 1, "2023-03-01", 3},
        {Day(2026, 1, 1), -1, "2025-12-31", 3},
        {Day(2026, 3, 28), 60, "2026-05-27", 3}, // across a change of the clocks
        {Day(1700, 3, 1), -1, "1700-02-28", 0}, {Day(2026, 3, 15), 0, "2026-03-15", 0},
        {Day(2026, 3, 15), -150000, "1615-07-08", 3}};
    SetZone("Europe/Berlin");
    for (const auto& row : cases) {
        SYSTEMTIME result = row.source;
        EXPECT_EQ(AddDays(&result, row.days, &result), &result);
        EXPECT_EQ(Text(result), row.result);
        EXPECT_EQ(result.wDayOfWeek, row.dayOfWeek) << row.result;
    }
}

TEST_F(DateRanges, AreNamedByTheirEnds) {
    CEntryFilter filter;
    EXPECT_EQ(FormatDateRange(&filter), L"All Dates");
    EXPECT_EQ(FormatDateRange(nullptr), L"All Dates");
    filter.SetDateRangeType(CEntryFilter::DateRangeYearToDate);
    EXPECT_EQ(FormatDateRange(&filter), L"1/1/2026 - 3/15/2026");
    filter.SetDateRangeType(static_cast<CEntryFilter::DateRangeType>(9));
    EXPECT_EQ(FormatDateRange(&filter), L"All Dates");
}

} // namespace
