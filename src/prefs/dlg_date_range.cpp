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
    DatePreset preset;
};

constexpr PresetCommand Presets[] = {
    {commands::LastThreeMonths, DatePreset::LastThreeMonths},
    {commands::LastSixMonths, DatePreset::LastSixMonths},
    {commands::LastTwelveMonths, DatePreset::LastTwelveMonths},
    {commands::LastThirtyDays, DatePreset::LastThirtyDays},
    {commands::PreviousMonth, DatePreset::PreviousMonth},
    {commands::PreviousYear, DatePreset::PreviousYear},
};

void Show(HWND picker, const SYSTEMTIME& date) {
    SendMessageW(picker, DTM_SETSYSTEMTIME, static_cast<WPARAM>(GDT_VALID), reinterpret_cast<LPARAM>(&date));
}

void Read(HWND picker, SYSTEMTIME* date) {
    SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(date));
}

bool IsAfter(const SYSTEMTIME& first, const SYSTEMTIME& second) {
    FILETIME firstTicks;
    FILETIME secondTicks;
    return SystemTimeToFileTime(&first, &firstTicks) && SystemTimeToFileTime(&second, &secondTicks)
        && CompareFileTime(&firstTicks, &secondTicks) > 0;
}

} // namespace

LPCDLGTEMPLATEW CDlgDateRange::GetTemplate() const {
    return &templates::DateRange;
}

bool CDlgDateRange::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/, LRESULT& /*result*/) {
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        return true;
    case WM_COMMAND:
        return OnCommand(LOWORD(wParam));
    default:
        return false;
    }
}

void CDlgDateRange::OnInitDialog() {
    const HWND dialog = GetHandle();
    CreateSoftKeyBar(dialog, menus::DateRange, true, false);
    ApplyLabelFont(dialog);
    InitFullScreen(dialog);
    startPicker_ = GetDlgItem(dialog, static_cast<int>(controls::StartDate));
    endPicker_ = GetDlgItem(dialog, static_cast<int>(controls::EndDate));
    ShowRange(*start_, *end_);
}

void CDlgDateRange::ShowRange(const SYSTEMTIME& start, const SYSTEMTIME& end) const {
    Show(startPicker_, start);
    Show(endPicker_, end);
}

bool CDlgDateRange::OnCommand(UINT command) const {
    if (command == commands::Done) {
        OnDone();
        return true;
    }
    if (command == commands::Cancel) {
        EndDialog(GetHandle(), commands::Cancel);
        return true;
    }
    const auto* const row = std::find_if(std::begin(Presets), std::end(Presets),
        [command](const PresetCommand& each) { return each.command == command; });
    if (row == std::end(Presets))
        return false;
    SYSTEMTIME now;
    GetLocalTime(&now);
    const DatePeriod period = PresetPeriod(row->preset, now);
    ShowRange(period.start, period.end);
    return true;
}

void CDlgDateRange::OnDone() const {
    Read(startPicker_, start_);
    Read(endPicker_, end_);
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
