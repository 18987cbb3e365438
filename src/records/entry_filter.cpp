#include "records/entry_filter.h"

#include "platform/time.h"
#include "records/record_dates.h"

#include <limits>

namespace {

SYSTEMTIME StartOfDay(SYSTEMTIME day) {
    day.wHour = day.wMinute = day.wSecond = day.wMilliseconds = 0;
    return day;
}

SYSTEMTIME EndOfDay(SYSTEMTIME day) {
    day.wHour = 23;
    day.wMinute = day.wSecond = 59;
    day.wMilliseconds = 999;
    return day;
}

/// Goes through the OLE date, so that the day of the week is right as well.
SYSTEMTIME DaysBefore(const SYSTEMTIME& day, int days) {
    double date = 0;
    SYSTEMTIME result = day;
    if (SystemTimeToVariantTime(&day, &date))
        VariantTimeToSystemTime(date - days, &result);
    return result;
}

} // namespace

CEntryFilter::CEntryFilter() {
    SetDateRangeType(DateRangeAll);
}

void CEntryFilter::SetDateRangeType(DateRangeType type) {
    dateRangeType_ = type;
    if (type == DateRangeCustom)
        return;
    SYSTEMTIME today;
    GetLocalTime(&today);
    today = StartOfDay(today);
    endDate_ = EndOfDay(today);
    int daysBack = 0;
    // A week is seven calendar days, today among them.
    if (type == DateRangeLastWeek)
        daysBack = 6;
    else if (type == DateRangeLastTwoWeeks)
        daysBack = 13;
    else if (type == DateRangeMonthToDate || type == DateRangeYearToDate)
        daysBack = today.wDay - 1;
    startDate_ = DaysBefore(today, daysBack);
    if (type == DateRangeYearToDate) {
        startDate_.wMonth = 1;
        startDate_ = DaysBefore(startDate_, 0);
    }
}

int CEntryFilter::HaveDateRange() const {
    return dateRangeType_ >= DateRangeLastWeek && dateRangeType_ <= DateRangeCustom;
}

CEntryFilter::Bounds CEntryFilter::DateBounds() const {
    constexpr double Unlimited = std::numeric_limits<double>::infinity();
    Bounds bounds{-Unlimited, Unlimited};
    if (HaveDateRange()) {
        constexpr double RestOfASecond = 0.999 / 86'400;
        LinearFromSystemTime(startDate_, &bounds.first);
        if (LinearFromSystemTime(endDate_, &bounds.last))
            bounds.last += RestOfASecond;
    }
    return bounds;
}

int CEntryFilter::EntryMatchesFilter(const CEntry* entry) const {
    if (!entry || entry->GetVehicleID() != vehicleId_)
        return 0;
    if (entryType_ != CEntry::EntryTypeAll && entry->GetType() != entryType_)
        return 0;
    const Bounds bounds = DateBounds();
    const double date = LinearFromOleDate(entry->GetDate());
    return date >= bounds.first && date <= bounds.last;
}
