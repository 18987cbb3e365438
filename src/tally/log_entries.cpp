#include "tally/log_entries.h"

#include "platform/time.h"

namespace tally {

CEntryFilter FilterOf(const CVehicle& vehicle, const Request& request) {
    CEntryFilter filter;
    filter.SetVehicleID(vehicle.GetRefID());
    if (!request.from && !request.to)
        return filter;
    // What a date field can hold.
    SYSTEMTIME first{1601, 1, 0, 1};
    SYSTEMTIME last{9999, 12, 0, 31};
    if (request.from)
        VariantTimeToSystemTime(*request.from, &first);
    if (request.to)
        VariantTimeToSystemTime(*request.to, &last);
    last.wHour = 23;
    last.wMinute = last.wSecond = 59;
    filter.SetStartDate(first, 1);
    filter.SetEndDate(last, 1);
    filter.SetDateRangeType(CEntryFilter::DateRangeCustom);
    return filter;
}

const char* KindName(CEntry::Type type) {
    constexpr const char* Names[] = {"", "fuel", "repair", "trip", "expense"};
    return type >= CEntry::EntryTypeFuel && type <= CEntry::EntryTypeExpense ? Names[type] : "unknown";
}

} // namespace tally
