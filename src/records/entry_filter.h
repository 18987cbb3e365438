#pragma once

#include "records/entry.h"

/// Which entries of the log are wanted: one vehicle's, of one kind or all, within one period or at any date.
class CEntryFilter {
public:
    /// The numbers are those of the ViewDateRangeType setting.
    enum DateRangeType : std::int32_t {
        DateRangeAll = 0,
        DateRangeLastWeek = 1,
        DateRangeLastTwoWeeks = 2,
        DateRangeMonthToDate = 3,
        DateRangeYearToDate = 4,
        DateRangeCustom = 5,
    };

    /// No vehicle, all kinds, all dates.
    CEntryFilter();

    /// The RefID of the vehicle; 0 for none.
    void SetVehicleID(ULONG vehicle) { vehicleId_ = vehicle; }
    ULONG GetVehicleID() const { return vehicleId_; }
    /// EntryTypeAll for every kind.
    void SetEntryType(CEntry::Type type) { entryType_ = type; }
    CEntry::Type GetEntryType() const { return entryType_; }
    /// Fixes the dates of a preset period, counted back from today; today stands in both where there is no period. For
    /// DateRangeCustom the dates stay.
    void SetDateRangeType(DateRangeType type);
    DateRangeType GetDateRangeType() const { return dateRangeType_; }
    /// The first and the last second of a custom period, whatever their milliseconds; both belong to it. The second
    /// argument is always 1.
    void SetStartDate(SYSTEMTIME date, int) { startDate_ = date; }
    void SetEndDate(SYSTEMTIME date, int) { endDate_ = date; }
    /// The filter's own values, never null.
    SYSTEMTIME* GetStartDate() { return &startDate_; }
    SYSTEMTIME* GetEndDate() { return &endDate_; }

    /// Non-zero when the filter limits the date.
    int HaveDateRange() const;
    /// Non-zero for an entry that CDataLayer::Load gives for this filter.
    int EntryMatchesFilter(const CEntry* entry) const;

    /// The period as linear dates (record_dates.h), both included; infinite where nothing limits it. This is the one
    /// form in which the filter is compared, here and in the data file.
    struct Bounds {
        double first;
        double last;
    };
    Bounds DateBounds() const;

private:
    ULONG vehicleId_ = 0;
    CEntry::Type entryType_ = CEntry::EntryTypeAll;
    DateRangeType dateRangeType_ = DateRangeAll;
    SYSTEMTIME startDate_;
    SYSTEMTIME endDate_;
};
