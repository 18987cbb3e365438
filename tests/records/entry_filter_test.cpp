#include "records/entry_filter.h"
#include "test_device.h"

namespace {

using EntryFilter = TestDevice;
using Filter = CEntryFilter;

TEST_F(EntryFilter, ACustomRangeHoldsBothItsDays) {
    constexpr double lastMinute = 43890 + 1439.0 / 1440;
    Filter filter;
    filter.SetStartDate({2020, 2, 0, 29}, 1);
    filter.SetEndDate({2020, 2, 0, 29, 23, 59}, 1);
    filter.SetDateRangeType(Filter::DateRangeCustom);
    CEntry entry;
    for (const auto& [date, matches] : {std::pair{43889.99999, 0}, {43890, 1}, {lastMinute, 1}, {43891, 0}}) {
        entry.SetDate(date);
        EXPECT_EQ(filter.EntryMatchesFilter(&entry), matches) << date;
    }
    // A day before the count of dates begins, whose times of day count the other way.
    filter.SetStartDate({1899, 12, 0, 28}, 1);
    filter.SetEndDate({1899, 12, 0, 28, 23, 59}, 1);
    for (const auto& [date, matches] : {std::pair{-2.0, 1}, {-2.75, 1}, {-1, 0}, {-3.75, 0}}) {
        entry.SetDate(date);
        EXPECT_EQ(filter.EntryMatchesFilter(&entry), matches) << date;
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
