#include "records/entry_filter.h"
#include "test_device.h"

namespace {

using EntryFilter = TestDevice;

TEST_F(EntryFilter, ACustomRangeHoldsBothItsDays) {
    const SYSTEMTIME leapDay{2020, 2, 0, 29};
    const SYSTEMTIME early{1899, 12, 0, 28}; // before the count of dates begins times of day count the other way
    const std::tuple<SYSTEMTIME, double, int> cases[]
        = {{leapDay, 43889.99999, 0}, {leapDay, 43890, 1}, {leapDay, 43890 + 1439.0 / 1440, 1}, {leapDay, 43891, 0},
            {early, -2, 1}, {early, -2.75, 1}, {early, -1, 0}, {early, -3.75, 0}};
    for (const auto& [day, date, matches] : cases) {
        SYSTEMTIME start = day;
        start.wMilliseconds = 999; // what the clock had when a preset was chosen
        SYSTEMTIME end = day;
        end.wHour = 23;
        end.wMinute = 59;
        CEntryFilter filter;
        filter.SetStartDate(start, 1);
        filter.SetEndDate(end, 1);
        filter.SetDateRangeType(CEntryFilter::DateRangeCustom);
        CEntry entry;
        entry.SetDate(date);
        EXPECT_EQ(filter.EntryMatchesFilter(&entry), matches) << date;
        entry.SetVehicleID(1001); // of another vehicle than the filter's
        EXPECT_FALSE(filter.EntryMatchesFilter(&entry));
    }
}

} // namespace
