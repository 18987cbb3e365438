#include "prefs/pick_date_range.h"

#include "platform/time.h"
#include "prefs/dlg_date_range.h"
#include "records/entry_filter.h"
#include "resources/command_ids.h"

namespace {

/// A day as an OLE date holds it, its day of the week worked out anew. Today where there is none.
SYSTEMTIME Refreshed(const SYSTEMTIME* source) {
    SYSTEMTIME day;
    GetLocalTime(&day);
    double date = 0.0;
    if (source && SystemTimeToVariantTime(source, &date))
        VariantTimeToSystemTime(date, &day);
    return day;
}

} // namespace

bool PickDateRange(SYSTEMTIME* start, SYSTEMTIME* end) {
    return CDlgDateRange(start, end).DoModal() == static_cast<LONG_PTR>(commands::Done);
}

bool PickCustomDates(CEntryFilter* filter) {
    // Without a range the filter's dates are those of the day on which it was last told so.
    const bool hasRange = filter->HaveDateRange() != 0;
    SYSTEMTIME start = Refreshed(hasRange ? filter->GetStartDate() : nullptr);
    SYSTEMTIME end = Refreshed(hasRange ? filter->GetEndDate() : nullptr);
    if (!PickDateRange(&start, &end))
        return false;
    filter->SetStartDate(start, 1);
    filter->SetEndDate(end, 1);
    return true;
}
