#include "prefs/dlg_date_range.h"

#include "forms/dialog_helpers.h"
#include "messages/show_message.h"
#include "platform/time.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "units/date_ranges.h"

#include <algorithm>
#include <iterator>

namespace {

struct PresetCommand {
    UINT command;
    DatePeriod (*period)(const SYSTEMTIME& now);
};

constexpr PresetCommand Presets[] = {
    {commands::LastThreeMonths, [](const SYSTEMTIME& now) { return DaysUntil(now, 90); }},
    {commands::LastSixMonths, [](const SYSTEMTIME& now) { return DaysUntil(now, 180); }},
    {commands::LastTwelveMonths, [](const SYSTEMTIME& now) { return DaysUntil(now, 365); }},
    {commands::LastThirtyDays, [](const SYSTEMTIME& now) { return DaysUntil(now, 30); }},
    {commands::PreviousMonth, MonthBefore},
    {commands::PreviousYear, YearBefore},
};

bool IsAfter(const SYSTEMTIME& first, const SYSTEMTIME& second) {
    FILETIME firstTicks;
    FILETIME secondTicks;
    return SystemTimeToFileTime(&first, &firstTicks) && SystemTimeToFileTime(&second, &secondTicks)
        && CompareFileTime(&firstTicks, &secondTicks) > 0;
}

} // namespace

CDlgDateRange::CDlgDateRange(SYSTEMTIME* start, SYSTEMTIME* end)
    : CFullScreenDialog(templates::DateRange, menus::DateRange, BackKey::IsReported)
    , start_(start)
    , end_(end) {
}

bool CDlgDateRange::OnInitDialog() {
    CFullScreenDialog::OnInitDialog();
    ShowRange(*start_, *end_);
    return true;
}

void CDlgDateRange::ShowRange(const SYSTEMTIME& start, const SYSTEMTIME& end) const {
    ShowDate(Item(controls::StartDate), start);
    ShowDate(Item(controls::EndDate), end);
}

bool CDlgDateRange::OnCommand(UINT id, UINT code, HWND sender) {
    const auto* const row = std::find_if(
        std::begin(Presets), std::end(Presets), [id](const PresetCommand& each) { return each.command == id; });
    if (row == std::end(Presets))
        return CFullScreenDialog::OnCommand(id, code, sender);
    SYSTEMTIME now;
    GetLocalTime(&now);
    const DatePeriod period = row->period(now);
    ShowRange(period.start, period.end);
    return true;
}

void CDlgDateRange::OnDone() {
    ReadDate(Item(controls::StartDate), start_);
    ReadDate(Item(controls::EndDate), end_);
    // The start keeps its milliseconds and the end its seconds: what the pickers were given comes back to that extent.
    start_->wHour = start_->wMinute = start_->wSecond = 0;
    end_->wHour = 23;
    end_->wMinute = 59;
    end_->wMilliseconds = 0;
    if (IsAfter(*start_, *end_))
        ShowMessage(GetHandle(), strings::EndDateBeforeStart, 0, messages::NoticeStyle);
    else
        EndDialog(GetHandle(), commands::Done);
}
