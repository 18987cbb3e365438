#include "records/entry_filter.h"
#include "test_device.h"

namespace {

using EntryFilter = TestDevice;
using Filter = CEntryFilter;

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
